#pragma once
// The program's pictures: the grid's images by index (0..50) and the named pictures of
// menus, status bar and cascade, drawn from the SVG files of share/icons.

#include <QHash>
#include <QIcon>
#include <QPixmap>
#include <QString>

#include <array>

namespace twk::gui {

class ImageList {
public:
    static constexpr int kCount = 51;

    /// Loads every picture of `folder` once.
    explicit ImageList(const QString& folder);

    /// The grid's image of an index; a null pixmap for -1 or an index without one.
    const QPixmap& pixmap(int index) const;
    QIcon icon(int index) const { return QIcon(pixmap(index)); }
    /// The grid's image of an index drawn at another size (dialogs show larger icons).
    QPixmap scaledPixmap(int index, int size) const;
    /// A named picture (menu keys, img..., pic..., event type keys); null when unknown.
    QIcon icon(const QString& key) const;
    QPixmap pixmap(const QString& key, int size = 16) const;
    /// The image of cbServer by its own index (29 NetWare, 30 Linux, 31 Windows, 32 unknown).
    QIcon serverIcon(int index) const;

    /// Whether every index and every key the program names has its picture.
    QStringList missing() const;

private:
    QPixmap render(const QString& file, int size) const;
    QString folder_;
    std::array<QPixmap, kCount> indexed_;
    QPixmap none_;
    mutable QHash<QString, QIcon> named_;
    mutable QHash<QString, QPixmap> rendered_;
};

/// The keys of the named pictures the window uses.
QStringList namedPictureKeys();

} // namespace twk::gui
