#include "app/gui/MenuForms.h"

#include "app/AppContext.h"
#include "app/frmMenu.h"
#include "budget/frmBudgetManagement.h"
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
    menu.setOpener(frmMenu::Opener::BudgetManagement, [&ctx, &menu] {
        frmBudgetManagement form(ctx, &menu);
        // The budget list follows the project chosen on the form itself.
        auto* formSelector = new ucProjectSelector(ctx, &form);
        form.setProjectSelector(
            formSelector, [formSelector] { formSelector->Cancel(); },
            [formSelector] { formSelector->Refresh(); });
        QObject::connect(formSelector, &ucProjectSelector::ProjectChanged, &form,
                         &frmBudgetManagement::projectChanged);
        form.exec();
    });
}
