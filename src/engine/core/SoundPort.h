#pragma once
// Playing a wave file: the rule dialog's preview and the wave alert of a matching rule.
// The window plays through Qt Multimedia; the command line and tests play nothing.

#include <QString>

namespace twk {

class SoundPort {
public:
    virtual ~SoundPort() = default;
    /// Starts playing the file and returns at once; silent when it cannot be played.
    virtual void playAsync(const QString& wavePath) = 0;
};

/// Plays nothing.
class NoSound : public SoundPort {
public:
    void playAsync(const QString&) override {}
};

/// The port an engine has before the window sets one.
SoundPort& noSound();

} // namespace twk
