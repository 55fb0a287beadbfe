#include "gui/ImageList.h"

#include "logs/Vocabulary.h"

#include <QDir>
#include <QFileInfo>
#include <QPainter>
#include <QSvgRenderer>

namespace twk::gui {

namespace {

QString indexFile(int index) {
    return QStringLiteral("%1.svg").arg(index, 2, 10, QLatin1Char('0'));
}
QString keyFile(const QString& key) {
    return QStringLiteral("key-") + key + QStringLiteral(".svg");
}

} // namespace

QStringList namedPictureKeys() {
    return {QStringLiteral("OPEN"),
            QStringLiteral("SAVE"),
            QStringLiteral("RELOAD"),
            QStringLiteral("CLOSE"),
            QStringLiteral("NOVELL"),
            QStringLiteral("EXIT1"),
            QStringLiteral("TID"),
            QStringLiteral("RCONSOLE"),
            QStringLiteral("CONFIGREPORT"),
            QStringLiteral("HEALTHCHECK"),
            QStringLiteral("RTMONITOROFF"),
            QStringLiteral("RTMONITORON"),
            QStringLiteral("FILTER"),
            QStringLiteral("FIND"),
            QStringLiteral("GOTO"),
            QStringLiteral("CANALYSER"),
            QStringLiteral("POINT"),
            QStringLiteral("NOPOINT"),
            QStringLiteral("RTEFILTER"),
            QStringLiteral("HELP"),
            QStringLiteral("TUX"),
            QStringLiteral("BULB"),
            QStringLiteral("NETWORK"),
            QStringLiteral("HOMEPAGE"),
            QStringLiteral("EMAIL"),
            QStringLiteral("UPDATE"),
            QStringLiteral("EVENT"),
            QStringLiteral("STATUS"),
            QStringLiteral("imgFile"),
            QStringLiteral("imgFilter"),
            QStringLiteral("imgFirst"),
            QStringLiteral("imgLast"),
            QStringLiteral("imgFileSize"),
            QStringLiteral("imgDate"),
            QStringLiteral("imgTime"),
            QStringLiteral("imgNoFlag"),
            QStringLiteral("imgUSAFlag"),
            QStringLiteral("imgDeFlag"),
            QStringLiteral("imgUnknownFlag"),
            QStringLiteral("imgUKFlag"),
            QStringLiteral("picTree"),
            QStringLiteral("picServer"),
            QStringLiteral("picVolume"),
            QStringLiteral("picLogfile"),
            QStringLiteral("picCloseLogfile"),
            QStringLiteral("server29"),
            QStringLiteral("server30"),
            QStringLiteral("server31"),
            QStringLiteral("server32"),
            QStringLiteral("twkfile"),
            QStringLiteral("tarnwick")};
}

ImageList::ImageList(const QString& folder) : folder_(folder) {
    for (int i = 0; i < kCount; ++i)
        indexed_[static_cast<std::size_t>(i)] = render(indexFile(i), 16);
}

QPixmap ImageList::render(const QString& file, int size) const {
    QSvgRenderer renderer(QDir(folder_).filePath(file));
    if (!renderer.isValid())
        return {};
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter);
    return pixmap;
}

const QPixmap& ImageList::pixmap(int index) const {
    if (index < 0 || index >= kCount)
        return none_;
    return indexed_[static_cast<std::size_t>(index)];
}

QPixmap ImageList::scaledPixmap(int index, int size) const {
    if (index < 0 || index >= kCount)
        return none_;
    const QString cacheKey =
        QLatin1Char('#') + QString::number(index) + QLatin1Char('@') + QString::number(size);
    const auto found = rendered_.constFind(cacheKey);
    if (found != rendered_.constEnd())
        return *found;
    const QPixmap picture = render(indexFile(index), size);
    rendered_.insert(cacheKey, picture);
    return picture;
}

QIcon ImageList::icon(const QString& key) const {
    const auto found = named_.constFind(key);
    if (found != named_.constEnd())
        return *found;
    QIcon icon;
    const QString file = keyFile(key);
    if (QFileInfo::exists(QDir(folder_).filePath(file))) {
        for (const int size : {16, 24, 32, 48})
            icon.addPixmap(render(file, size));
    } else {
        // The event type keys name grid images.
        const int index = EventTypeImageOfKey(key.toStdString());
        if (index >= 0)
            icon = this->icon(index);
    }
    named_.insert(key, icon);
    return icon;
}

QPixmap ImageList::pixmap(const QString& key, int size) const {
    const QString cacheKey = key + QLatin1Char('@') + QString::number(size);
    const auto found = rendered_.constFind(cacheKey);
    if (found != rendered_.constEnd())
        return *found;
    const QString file = keyFile(key);
    const QPixmap picture = QFileInfo::exists(QDir(folder_).filePath(file))
                                ? render(file, size)
                                : icon(key).pixmap(size, size);
    rendered_.insert(cacheKey, picture);
    return picture;
}

QIcon ImageList::serverIcon(int index) const {
    return icon(QStringLiteral("server") + QString::number(index));
}

QStringList ImageList::missing() const {
    QStringList absent;
    for (int i = 0; i < kCount; ++i)
        if (!QFileInfo::exists(QDir(folder_).filePath(indexFile(i))))
            absent.append(indexFile(i));
    for (const QString& key : namedPictureKeys())
        if (!QFileInfo::exists(QDir(folder_).filePath(keyFile(key))))
            absent.append(keyFile(key));
    return absent;
}

} // namespace twk::gui
