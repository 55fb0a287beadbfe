#pragma once
// Shared pieces of the engine tests: a throw-away folder tree and a user interface
// port that records what the program would have shown.

#include "core/AppPaths.h"
#include "core/UiPort.h"
#include "logs/ProgressPort.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <string>
#include <vector>

namespace twk::test {

struct RecordedMessage {
    QString text;
    MsgIcon icon;
    MsgButtons buttons;
    QString title;
};

class FakeUi : public UiPort {
public:
    std::vector<RecordedMessage> messages;
    std::vector<StyledMessage> styled;
    std::vector<MsgResult> answers; ///< answers given in order; Yes/Ok when exhausted
    int yields = 0;

    MsgResult messageBox(const QString& text, MsgIcon icon, MsgButtons buttons,
                         const QString& title) override {
        messages.push_back({text, icon, buttons, title});
        if (!answers.empty()) {
            const MsgResult r = answers.front();
            answers.erase(answers.begin());
            return r;
        }
        return buttons == MsgButtons::YesNo || buttons == MsgButtons::YesNoCancel ? MsgResult::Yes
                                                                                  : MsgResult::Ok;
    }
    void styledMessage(const StyledMessage& m) override { styled.push_back(m); }
    void yield() override { ++yields; }
};

/// A fresh folder tree (app, config, network) that is removed afterwards.
class TempTree {
public:
    TempTree() : paths_(AppPaths::under(dir_.path())) { paths_.ensureFolders(); }
    const AppPaths& paths() const { return paths_; }
    QString path(const QString& relative) const { return dir_.path() + "/" + relative; }

    /// Writes bytes to a file below the tree, creating folders; returns its path.
    QString write(const QString& relative, const QByteArray& bytes) const {
        const QString full = path(relative);
        QDir().mkpath(QFileInfo(full).absolutePath());
        QFile f(full);
        f.open(QIODevice::WriteOnly | QIODevice::Truncate);
        f.write(bytes);
        return full;
    }
    QByteArray read(const QString& relative) const {
        QFile f(path(relative));
        if (!f.open(QIODevice::ReadOnly))
            return {};
        return f.readAll();
    }

private:
    QTemporaryDir dir_;
    AppPaths paths_;
};

/// A progress port that records what it was told: captions of shown and flashed
/// windows, every bar value, flash times and how often it was hidden.
struct RecordingProgress : ProgressPort {
    std::vector<QString> captions;
    std::vector<int> bars;
    std::vector<int> flashes;
    int hidden = 0;
    void showProgress(const QString& caption, int bar) override {
        captions.push_back(caption);
        bars.push_back(bar);
    }
    void setBar(int bar) override { bars.push_back(bar); }
    void flashProgress(const QString& caption, int ms) override {
        captions.push_back(caption);
        flashes.push_back(ms);
    }
    void hideProgress() override { ++hidden; }
};

} // namespace twk::test
