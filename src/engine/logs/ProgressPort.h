#pragma once
// The progress window of a load: a bar from 15 to 4500 twips and a pass caption.
// The window program draws it; tests record the values.

#include <QString>

namespace twk {

inline constexpr int kBarStartTwips = 15;
inline constexpr int kBarFullTwips = 4500;

class ProgressPort {
public:
    virtual ~ProgressPort() = default;
    /// Shows the window with a caption ("   Pass 1/2") and the bar at `barTwips`.
    virtual void showProgress(const QString& passCaption, int barTwips) = 0;
    virtual void setBar(int barTwips) = 0;
    /// Shows the window with a full bar for `milliseconds`, then unloads it.
    virtual void flashProgress(const QString& passCaption, int milliseconds) = 0;
    virtual void hideProgress() = 0;
};

class NoProgress : public ProgressPort {
public:
    void showProgress(const QString&, int) override {}
    void setBar(int) override {}
    void flashProgress(const QString&, int) override {}
    void hideProgress() override {}
};

} // namespace twk
