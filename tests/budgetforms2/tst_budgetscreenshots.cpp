// Pictures of the budget editor and the budget list for the documentation. Runs only when
// VANTREL_SCREENSHOT_DIR names the folder to write them to, best under a real X server,
// e.g. with xvfb-run -a, QT_QPA_PLATFORM=xcb and the argument "-class BudgetScreenshotTest"
// to tst_budgetforms2.
#include "BudgetFormsFixture.h"
#include "TestRegistry.h"
#include "budget/frmBudgetEdit.h"
#include "budget/frmBudgetManagement.h"
#include "ui/Branding.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QTreeWidget>

using namespace testing;

namespace {

const QString Account = QStringLiteral("VLR-448120");

// Twelve monthly periods from January 2023, on the bill dates of the account.
void twelveMonths(BudgetFormsFixture& f, int budgetId, int usageBase, int recurring, bool withOneOffs) {
    for (int m = 1; m <= 12; ++m) {
        const Money usage = Money::fromPounds(usageBase + (m * 137) % 420) + Money::fromRaw(m * 2500);
        const Money oneOff =
            withOneOffs && (m == 4 || m == 9) ? Money::fromPounds(m == 4 ? 640 : 275) : Money();
        const Money adjustments = m % 5 == 0 ? Money::fromRaw(-452500) : Money();
        f.entry(budgetId, Date(2023, unsigned(m), 14), usage, Money::fromPounds(recurring), oneOff,
                adjustments);
    }
}

} // namespace

class BudgetScreenshotTest : public QObject {
    Q_OBJECT
private slots:
    void editorAndList();
};

void BudgetScreenshotTest::editorAndList() {
    const QString out = qEnvironmentVariable("VANTREL_SCREENSHOT_DIR");
    if (out.isEmpty())
        QSKIP("VANTREL_SCREENSHOT_DIR is not set");
    LoadBrandFont(QString());
    ApplyApplicationLook();

    BudgetFormsFixture f;
    const int plan = f.master(QStringLiteral("Telephony 2023"), Account, 2, QStringLiteral("2022-12-19"));
    twelveMonths(f, plan, 0, 0, false);
    const int sales = f.child(plan, QStringLiteral("Sales"), Account, 2, QStringLiteral("Sales & Marketing"),
                              QStringLiteral("2022-12-19"));
    twelveMonths(f, sales, 1850, 960, true);
    const int support = f.child(plan, QStringLiteral("Support"), Account, 2,
                                QStringLiteral("Customer Support"), QStringLiteral("2022-12-20"));
    twelveMonths(f, support, 2400, 1320, false);
    const int finance = f.child(plan, QStringLiteral("Finance"), Account, 2, QStringLiteral("Finance"),
                                QStringLiteral("2023-01-03"));
    twelveMonths(f, finance, 420, 310, false);
    const int whole = f.master(QStringLiteral("Whole Bill H1"), Account, 0, QStringLiteral("2023-01-09"));
    for (int m = 1; m <= 6; ++m)
        f.entry(whole, Date(2023, unsigned(m), 14), Money::fromPounds(5200 + m * 85),
                Money::fromPounds(2590));
    const int north = f.master(QStringLiteral("Northern Sites"), QStringLiteral("VLR-512907"), 1,
                               QStringLiteral("2023-02-01"));
    for (int m = 2; m <= 7; ++m)
        f.entry(north, Date(2023, unsigned(m), 2));
    const int depot = f.child(north, QStringLiteral("Leeds Depot"), QStringLiteral("VLR-512907"), 1,
                              QStringLiteral("Leeds"), QStringLiteral("2023-02-01"));
    for (int m = 2; m <= 7; ++m)
        f.entry(depot, Date(2023, unsigned(m), 2), Money::fromPounds(610 + m * 12), Money::fromPounds(385));

    frmBudgetEdit editor(f.ctx);
    editor.Setup(sales);
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));
    editor.grid()->setCurrentIndex(editor.grid()->model()->index(0, 3));
    QTest::qWait(300);
    QVERIFY(editor.grab().save(out + QStringLiteral("/budget-editor.png")));
    editor.done(QDialog::Accepted);

    frmBudgetManagement list(f.ctx);
    // A stand-in for the project selector, as it shows a selected project.
    auto* selector = new QWidget;
    auto* row = new QHBoxLayout(selector);
    row->setContentsMargins(0, 0, 0, 0);
    auto* project = new QLineEdit(QStringLiteral("VLR-448120 March 2023.mdb"));
    project->setReadOnly(true);
    row->addWidget(project, 1);
    auto* browse = new QPushButton(QStringLiteral("Select"));
    browse->setProperty("secondary", true);
    row->addWidget(browse);
    list.setProjectSelector(
        selector, [] {}, [] {});
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    QVERIFY(list.SelectBudget(support));
    list.list()->setFocus();
    QTest::qWait(300);
    QVERIFY(list.grab().save(out + QStringLiteral("/budget-management.png")));
    list.done(QDialog::Accepted);
}

VANTREL_TEST(BudgetScreenshotTest);
#include "tst_budgetscreenshots.moc"
