// Pictures of the two budget creation forms for the documentation. Runs only when
// VANTREL_SCREENSHOT_DIR names the folder to write them to, best under a real X server,
// e.g. with xvfb-run -a, QT_QPA_PLATFORM=xcb and the argument "-class FormScreenshotTest"
// to tst_budgetforms1.
#include "FormStores.h"
#include "TestRegistry.h"
#include "budget/BudgetStatus.h"
#include "budget/clsBudget.h"
#include "budget/frmBudgetAddMaster.h"
#include "budget/frmBudgetAddSlave.h"
#include "ui/Branding.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QTest>

using namespace testing;

class FormScreenshotTest : public QObject {
    Q_OBJECT
private slots:
    void masterForm();
    void costCentreForm();

private:
    // The folder to write to; false (the test skipped) when none is named.
    bool prepare();
    QString out_;
};

namespace {

void fillDemo(FormStores& s) {
    const char* services[] = {"01632 960001", "01632 960002", "01632 960003"};
    const char* centres[] = {"Sales", "Operations", "Finance"};
    for (int m = 1; m <= 12; ++m) {
        for (int i = 0; i < 3; ++i) {
            s.trendRow(QStringLiteral("ACC1"), Date(2022, unsigned(m), 15), QString::fromLatin1(services[i]),
                       Money::fromRaw(1000000 + 13750 * m + 250000 * i), cash("42.5"));
        }
    }
    for (int i = 0; i < 3; ++i)
        s.costCentre(QStringLiteral("ACC1"), QString::fromLatin1(services[i]),
                     QString::fromLatin1(centres[i]));
}

} // namespace

bool FormScreenshotTest::prepare() {
    out_ = qEnvironmentVariable("VANTREL_SCREENSHOT_DIR");
    if (out_.isEmpty())
        return false;
    LoadBrandFont(QString());
    ApplyApplicationLook();
    return true;
}

void FormScreenshotTest::masterForm() {
    if (!prepare())
        QSKIP("VANTREL_SCREENSHOT_DIR is not set");
    FormStores s;
    fillDemo(s);
    frmBudgetAddMaster form(s.ctx);
    form.titleBox()->setText(QStringLiteral("Telephony 2023"));
    form.periodDate(0)->setDate(QDate(2023, 1, 15));
    form.periodCheck(9)->setChecked(false);
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    QTest::qWait(300);
    QVERIFY(form.grab().save(out_ + QStringLiteral("/budget-master.png")));
}

void FormScreenshotTest::costCentreForm() {
    if (!prepare())
        QSKIP("VANTREL_SCREENSHOT_DIR is not set");
    FormStores s;
    fillDemo(s);
    clsBudget master(s.ctx.budgetDb, s.ctx.trendDb);
    master.CreateMaster(QStringLiteral("ACC1"), 1);
    master.setName(QStringLiteral("Telephony 2023"));
    for (unsigned m = 1; m <= 6; ++m)
        master.AddDate(Date(2023, m, 15), {}, {}, {}, {});
    QCOMPARE(master.SaveBudget(false), BudgetStatus::Ok);

    frmBudgetAddSlave form(s.ctx);
    form.Setup(master.ID(), false);
    form.titleBox()->setText(QStringLiteral("Sales 2023"));
    form.costCentreList()->setCurrentIndex(form.costCentreList()->findText(QStringLiteral("Sales")));
    form.percentBox(1)->setText(QStringLiteral("5.0"));
    form.percentBox(4)->setText(QStringLiteral("-2.5"));
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    QTest::qWait(300);
    QVERIFY(form.grab().save(out_ + QStringLiteral("/budget-costcentre.png")));
}

VANTREL_TEST(FormScreenshotTest);
#include "tst_formscreenshots.moc"
