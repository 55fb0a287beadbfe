#pragma once
// Wave files played through Qt Multimedia, without waiting; silent when the file or
// the sound device is missing.

#include "core/SoundPort.h"

#include <QObject>

#include <memory>

class QSoundEffect;

namespace twk::gui {

class QtSound : public QObject, public SoundPort {
    Q_OBJECT
public:
    explicit QtSound(QObject* parent = nullptr);
    ~QtSound() override;
    void playAsync(const QString& wavePath) override;

private:
    std::unique_ptr<QSoundEffect> effect_;
};

} // namespace twk::gui
