#pragma once
// Builds small server logs for the tests, line by line, with CR LF line ends.

#include <QByteArray>

#include <initializer_list>

namespace twk::test {

inline QByteArray lines(std::initializer_list<const char*> texts) {
    QByteArray out;
    for (const char* t : texts) {
        out += t;
        out += "\r\n";
    }
    return out;
}

/// One English entry: header, code line, message lines, closing empty line.
inline QByteArray englishEntry(const char* header, const char* code,
                               std::initializer_list<const char*> message) {
    QByteArray out;
    out += header;
    out += "\r\n";
    out += code;
    out += "\r\n";
    for (const char* m : message) {
        out += m;
        out += "\r\n";
    }
    out += "\r\n";
    return out;
}

} // namespace twk::test
