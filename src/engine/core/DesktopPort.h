#pragma once
// Starting programs and opening files, folders and web pages. The window program uses
// the desktop's own handlers; tests record what would have been opened.

#include <QString>
#include <QStringList>

namespace twk {

class DesktopPort {
public:
    virtual ~DesktopPort() = default;
    /// Starts a program with an argument list (never through a shell); false when it
    /// could not be started.
    virtual bool startProgram(const QString& program, const QStringList& arguments) = 0;
    /// Opens a file, a folder or a web address with the desktop's default handler.
    virtual bool openDefault(const QString& target) = 0;
};

/// Starts detached processes; opens targets with xdg-open.
class ProcessDesktop : public DesktopPort {
public:
    bool startProgram(const QString& program, const QStringList& arguments) override;
    bool openDefault(const QString& target) override;
};

/// Opens nothing and says so.
class NoDesktop : public DesktopPort {
public:
    bool startProgram(const QString&, const QStringList&) override { return false; }
    bool openDefault(const QString&) override { return false; }
};

/// The port an engine has before the window sets one.
DesktopPort& noDesktop();

} // namespace twk
