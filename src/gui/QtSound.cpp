#include "gui/QtSound.h"

#include <QFileInfo>
#include <QSoundEffect>
#include <QUrl>

namespace twk::gui {

QtSound::QtSound(QObject* parent) : QObject(parent) {}

QtSound::~QtSound() = default;

void QtSound::playAsync(const QString& wavePath) {
    if (wavePath.isEmpty() || !QFileInfo(wavePath).isFile())
        return;
    // A new sound replaces the one still playing, as one system sound call would.
    effect_ = std::make_unique<QSoundEffect>();
    effect_->setSource(QUrl::fromLocalFile(QFileInfo(wavePath).absoluteFilePath()));
    effect_->play();
}

} // namespace twk::gui
