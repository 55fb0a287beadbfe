#include "logs/DateLine.h"

#include "core/Text.h"

#include <algorithm>

namespace twk {

bool isDateToken(std::string_view token) {
    if (token.size() < 7 || token.size() > 10)
        return false;
    char separator = 0;
    for (const char ch : token) {
        const auto c = static_cast<unsigned char>(ch);
        if (c < 45 || c > 57)
            return false;
        if (c <= 47)
            separator = ch;
    }
    if (separator == 0)
        return false;
    return std::count(token.begin(), token.end(), separator) == 2;
}

bool bDateLine(std::string& text) {
    if (text.size() < 7)
        return false;
    text.erase(std::remove(text.begin(), text.end(), '\n'), text.end());
    const std::string_view trimmed = text::trim(text);
    if (trimmed.size() != text.size())
        text = std::string(trimmed);
    if (text.size() < 7)
        return false;
    const auto blank = text.find(' ');
    if (blank == std::string::npos)
        return false;
    return isDateToken(std::string_view(text).substr(0, blank));
}

} // namespace twk
