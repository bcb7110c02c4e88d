#include "app/gui/MenuForms.h"

#include "app/AppContext.h"
#include "app/frmMenu.h"

void connectMenuForms(frmMenu& menu, AppContext& ctx) {
    // Each form the menu opens is plugged in here as it arrives, e.g.
    //   menu.setOpener(frmMenu::Opener::TrendManagement, [&ctx] { frmTrendManagement f(ctx); f.exec(); });
    // and the project selector with menu.setProjectSelector(...). Until then the buttons stay disabled.
    Q_UNUSED(menu);
    Q_UNUSED(ctx);
}
