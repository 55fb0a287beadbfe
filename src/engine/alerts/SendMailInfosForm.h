#pragma once
// frmSendMailInfos, the window of the options' mail test, as a model: it sends the test
// mail to the first recipient and lists what the mail object reports.

#include "core/FormControls.h"

#include <QString>
#include <QStringList>

#include <functional>

namespace twk {

class Engine;
class MailSender;

class FrmSendMailInfos {
public:
    FrmSendMailInfos(Engine& engine, MailSender& mail);
    ~FrmSendMailInfos();
    FrmSendMailInfos(const FrmSendMailInfos&) = delete;
    FrmSendMailInfos& operator=(const FrmSendMailInfos&) = delete;

    QString caption = QStringLiteral(" sending a mail now...");
    LabelState Label1; ///< "see the results here..."
    QStringList Listbox1;
    int ListIndex = -1; ///< the line scrolled to: always the last
    bool closed = false;

    /// The test begins: MailTestActive on, the list empty.
    void Form_Load();
    /// Sends "-STOP-" with the test subject to the first recipient of the settings, or
    /// says that there is none.
    void RunMailTest();
    /// Closing (and Escape): the test is over.
    void Form_Unload();

    /// Lines from the mail object's events; the list scrolls to its last line.
    void addLines(const QStringList& lines);
    /// Called when the list changed (the window draws it).
    std::function<void()> onChanged;

private:
    Engine& engine_;
    MailSender& mail_;
};

} // namespace twk
