#include "app/BrandFont.h"

#include "app/BrandFontRules.h"

#include <QFile>
#include <QFontDatabase>
#include <QHash>

namespace {

// The font database is process-wide, so is what was registered in it.
struct BrandFontState {
    QString family;
    bool fromFile = false;
    QHash<QString, int> registered; // file name -> font id
};

BrandFontState& state() {
    static BrandFontState s;
    return s;
}

QString fallbackFamily() {
    const QStringList installed = QFontDatabase::families();
    for (const QString& family : brandFallbackFamilies())
        if (installed.contains(family, Qt::CaseInsensitive))
            return family;
    return brandFallbackFamilies().first();
}

} // namespace

QString LoadBrandFont(const QString& appFolder) {
    BrandFontState& s = state();
    s.family = fallbackFamily();
    s.fromFile = false;
    const QString file = appFolder + QLatin1Char('/') + BrandFontFile::Curve;
    int id = s.registered.value(BrandFontFile::Curve, -1);
    if (id < 0 && QFile::exists(file)) {
        id = QFontDatabase::addApplicationFont(file);
        if (id >= 0)
            s.registered.insert(BrandFontFile::Curve, id);
    }
    if (id >= 0) {
        const QStringList families = QFontDatabase::applicationFontFamilies(id);
        if (!families.isEmpty()) {
            s.family = families.first();
            s.fromFile = true;
        }
    }
    return s.family;
}

void UnloadBrandFonts(const QString& appFolder) {
    Q_UNUSED(appFolder);
    BrandFontState& s = state();
    for (const QString& name : {BrandFontFile::Regular, BrandFontFile::Light}) {
        const int id = s.registered.value(name, -1);
        if (id >= 0 && QFontDatabase::removeApplicationFont(id))
            s.registered.remove(name);
    }
}

QString brandFontFamily() {
    BrandFontState& s = state();
    if (s.family.isEmpty())
        s.family = fallbackFamily();
    return s.family;
}

bool brandFontFromFile() {
    return state().fromFile;
}
