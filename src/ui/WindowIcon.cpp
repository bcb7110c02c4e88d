#include "ui/WindowIcon.h"

#include <QFile>
#include <QWidget>

// The icons live in a static library: their resource must be registered by hand.
static void registerIcons() {
    static const bool done = [] {
        Q_INIT_RESOURCE(icons);
        return true;
    }();
    Q_UNUSED(done);
}

QIcon resourceIcon(const QString& resourceName) {
    registerIcons();
    QIcon icon;
    const QString base = QStringLiteral(":/icons/") + resourceName.toLower();
    for (int size : {16, 24, 32, 48, 64, 128, 256}) {
        const QString file = QStringLiteral("%1-%2.png").arg(base).arg(size);
        if (QFile::exists(file))
            icon.addFile(file, QSize(size, size));
    }
    return icon;
}

void SetIcon(QWidget* window, const QString& resourceName) {
    if (!window)
        return;
    const QIcon icon = resourceIcon(resourceName);
    if (!icon.isNull())
        window->setWindowIcon(icon);
}
