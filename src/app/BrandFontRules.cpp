#include "app/BrandFontRules.h"

namespace {

const QStringList& ownTextClasses() {
    static const QStringList names{
        QStringLiteral("uctFooter"),    QStringLiteral("uctHeader"),  QStringLiteral("ucProjectSelector"),
        QStringLiteral("ucReportArea"), QStringLiteral("QChartView"), QStringLiteral("QDateEdit"),
        QStringLiteral("QProgressBar"), QStringLiteral("QScrollBar"), QStringLiteral("QFileDialog"),
        QStringLiteral("QMenu"),        QStringLiteral("QMenuBar"),   QStringLiteral("QCalendarWidget"),
    };
    return names;
}

const QStringList& labelsModeClasses() {
    static const QStringList names{
        QStringLiteral("QLabel"),         QStringLiteral("QLineEdit"), QStringLiteral("QTextEdit"),
        QStringLiteral("QPlainTextEdit"), QStringLiteral("QGroupBox"),
    };
    return names;
}

} // namespace

QStringList brandFallbackFamilies() {
    return {QStringLiteral("Calibri"), QStringLiteral("Carlito")};
}

bool canTakeFont(const QStringList& classChain) {
    for (const QString& name : classChain)
        if (ownTextClasses().contains(name))
            return false;
    return true;
}

bool takesFontInLabelsMode(const QStringList& classChain, const QString& objectName) {
    if (objectName.compare(QLatin1String("txtNote"), Qt::CaseInsensitive) == 0)
        return false;
    for (const QString& name : classChain) {
        if (ownTextClasses().contains(name))
            return false;
        if (labelsModeClasses().contains(name))
            return true;
    }
    return false;
}
