#pragma once
// The command line's user interface: message boxes go to standard error as plain
// lines; questions take their default answer.

#include "core/UiPort.h"

#include <cstdio>

namespace twk::cli {

class CliUi : public UiPort {
public:
    MsgResult messageBox(const QString& text, MsgIcon, MsgButtons buttons,
                         const QString&) override {
        QString lines = text;
        lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
        lines.replace(QLatin1Char('\r'), QLatin1Char('\n'));
        std::fprintf(stderr, "%s\n", lines.toLocal8Bit().constData());
        return buttons == MsgButtons::YesNo || buttons == MsgButtons::YesNoCancel ? MsgResult::Yes
                                                                                  : MsgResult::Ok;
    }
    void styledMessage(const StyledMessage& m) override {
        std::fprintf(stderr, "%s\n", m.headline.toLocal8Bit().constData());
        for (const QString& line : m.lines)
            std::fprintf(stderr, "%s\n", line.toLocal8Bit().constData());
    }
    void yield() override {}
};

} // namespace twk::cli
