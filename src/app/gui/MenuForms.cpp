#include "app/gui/MenuForms.h"

#include "app/AppContext.h"
#include "app/frmMenu.h"
#include "budget/frmBudgetManagement.h"
#include "data/ucProjectSelector.h"
#include "reports/frmBudgetReports.h"
#include "reports/frmTrendReports.h"
#include "trend/frmTrendManagement.h"

namespace {

// Gives a form that has a place for it a project selector of its own; its list follows
// the project chosen there. All selectors share the one selection of the context.
template <typename Form> void attachSelector(Form& form, AppContext& ctx) {
    auto* selector = new ucProjectSelector(ctx, &form);
    form.setProjectSelector(
        selector, [selector] { selector->Cancel(); }, [selector] { selector->Refresh(); });
    QObject::connect(selector, &ucProjectSelector::ProjectChanged, &form, &Form::projectChanged);
}

} // namespace

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
    menu.setOpener(frmMenu::Opener::TrendReports, [&ctx, &menu] {
        frmTrendReports form(ctx, &menu);
        attachSelector(form, ctx);
        form.exec();
    });
    menu.setOpener(frmMenu::Opener::BudgetManagement, [&ctx, &menu] {
        frmBudgetManagement form(ctx, &menu);
        attachSelector(form, ctx);
        form.exec();
    });
    menu.setOpener(frmMenu::Opener::BudgetReports, [&ctx, &menu] {
        frmBudgetReports form(ctx, &menu);
        attachSelector(form, ctx);
        form.exec();
    });
}
