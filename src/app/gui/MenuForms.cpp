#include "app/gui/MenuForms.h"

#include "app/AppContext.h"
#include "app/frmMenu.h"
#include "reports/frmTrendReports.h"

void connectMenuForms(frmMenu& menu, AppContext& ctx) {
    // Each form the menu opens is plugged in here as it arrives, e.g.
    //   menu.setOpener(frmMenu::Opener::TrendManagement, [&ctx] { frmTrendManagement f(ctx); f.exec(); });
    // and the project selector with menu.setProjectSelector(...). Until then the buttons stay disabled.
    menu.setOpener(frmMenu::Opener::TrendReports, [&ctx, &menu] {
        frmTrendReports form(ctx, &menu);
        form.exec();
    });
}
