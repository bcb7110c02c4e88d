#include "app/BalloonText.h"

QString balloonTitle(const QString& caption) {
    QString title;
    title.reserve(caption.size());
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (caption[i] == QLatin1Char('&')) {
            if (i + 1 < caption.size() && caption[i + 1] == QLatin1Char('&')) {
                title += QLatin1Char('&');
                ++i;
            }
            continue;
        }
        title += caption[i];
    }
    return title;
}

QString balloonToolTip(const QString& title, const QString& hint) {
    if (hint.isEmpty())
        return QString();
    const QString body = hint.toHtmlEscaped();
    if (title.isEmpty())
        return QStringLiteral("<p style='white-space:pre'>%1</p>").arg(body);
    return QStringLiteral("<p style='white-space:pre'><b>%1</b><br/>%2</p>").arg(title.toHtmlEscaped(), body);
}
