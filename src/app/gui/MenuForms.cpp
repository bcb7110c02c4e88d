#include "app/gui/MenuForms.h"

#include "app/AppContext.h"
#include "app/frmMenu.h"
#include "data/ucProjectSelector.h"
#include "trend/frmTrendManagement.h"

void connectMenuForms(frmMenu& menu, AppContext& ctx) {
    // The project selector beside "Selected Project"; the trend buttons follow its choice.
    auto* selector = new ucProjectSelector(ctx, &menu);
    menu.setProjectSelector(
        selector, [selector] { selector->Cancel(); }, [selector] { selector->Refresh(); });
    QObject::connect(selector, &ucProjectSelector::ProjectChanged, &menu, &frmMenu::projectChanged);
    selector->Refresh();

    menu.setOpener(frmMenu::Opener::TrendManagement, [&ctx, &menu] {
        frmTrendManagement form(ctx, &menu);
        form.exec();
    });
}
