#pragma once
// Popups of the alerts. A message to the local computer is a desktop notification over
// D-Bus (org.freedesktop.Notifications); a message to another computer goes by the SMB
// messenger, `smbclient -M NAME` with the text on its standard input, started without a
// shell and never waited for. Both are silent when they cannot deliver.

#include <QDBusConnection>
#include <QObject>
#include <QString>

#include <optional>

namespace twk {

class PopupPort {
public:
    virtual ~PopupPort() = default;
    /// The local computer's name; empty when it cannot be had.
    virtual QString GetLocalHostName() = 0;
    /// Sends `text` to the computer; false when it could not be handed on.
    virtual bool BroadcastMessage(const QString& computer, const QString& text) = 0;
};

/// The desktop notification of a popup text: the head line is the summary, the lines
/// from the date on are the body (line feeds only).
struct NotificationText {
    QString summary;
    QString body;
};
NotificationText NotificationOf(const QString& popupText);

class DesktopPopups : public QObject, public PopupPort {
    Q_OBJECT
public:
    /// Notifications over `bus` (the session bus unless given).
    explicit DesktopPopups(std::optional<QDBusConnection> bus = std::nullopt,
                           QObject* parent = nullptr);
    ~DesktopPopups() override;

    QString GetLocalHostName() override;
    bool BroadcastMessage(const QString& computer, const QString& text) override;

    /// The desktop notification; false when no bus is there.
    bool Notify(const QString& text);
    /// `smbclient -M computer`; false when the program is not installed.
    bool SendSmbMessage(const QString& computer, const QString& text);

    /// A messenger still running after so long is stopped.
    int messengerLimitMs = 60000;
    /// Messenger processes not yet ended.
    int runningMessengers() const;

private:
    bool bodyMarkup();

    QDBusConnection bus_;
    std::optional<bool> markup_; ///< the server shows markup in the body
};

} // namespace twk
