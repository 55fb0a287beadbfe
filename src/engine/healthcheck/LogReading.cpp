#include "healthcheck/LogReading.h"

#include "core/ErrorCapture.h"

#include <QFile>

namespace twk {

namespace {
constexpr std::size_t kBlock = std::size_t{1} << 16;
} // namespace

struct FieldReader::File {
    QFile file;
};

FieldReader::FieldReader(const QString& path) : file_(std::make_unique<File>()) {
    file_->file.setFileName(path);
    if (!file_->file.open(QIODevice::ReadOnly))
        eof_ = true;
}

FieldReader::~FieldReader() = default;

bool FieldReader::isOpen() const {
    return file_->file.isOpen();
}

bool FieldReader::fill() {
    if (eof_)
        return false;
    buffer_.resize(kBlock);
    const qint64 n = file_->file.read(buffer_.data(), static_cast<qint64>(kBlock));
    if (n <= 0) {
        buffer_.clear();
        eof_ = true;
        return false;
    }
    buffer_.resize(static_cast<std::size_t>(n));
    pos_ = 0;
    return true;
}

int FieldReader::peek() {
    if (pos_ >= buffer_.size() && !fill())
        return -1;
    return static_cast<unsigned char>(buffer_[pos_]);
}

bool FieldReader::next(std::string& field) {
    field.clear();
    int c = peek();
    while (c == ' ') {
        advance();
        c = peek();
    }
    if (c < 0)
        return false;
    // Ends a field at a delimiter: a comma, or a line end (CR LF taken as one).
    auto endField = [this](int d) {
        advance();
        if (d == '\r' && peek() == '\n')
            advance();
    };
    if (c == '"') {
        advance();
        for (c = peek(); c >= 0 && c != '"'; c = peek()) {
            // Copy the run up to the closing quote at once.
            const std::size_t end = buffer_.find('"', pos_);
            const std::size_t stop = end == std::string::npos ? buffer_.size() : end;
            field.append(buffer_, pos_, stop - pos_);
            pos_ = stop;
        }
        if (c == '"')
            advance();
        for (c = peek(); c >= 0 && c != ',' && c != '\r' && c != '\n'; c = peek())
            advance();
        if (c >= 0)
            endField(c);
        return true;
    }
    for (;;) {
        if (pos_ >= buffer_.size() && !fill())
            return true;
        const char* begin = buffer_.data() + pos_;
        const char* end = buffer_.data() + buffer_.size();
        const char* p = begin;
        while (p < end && *p != ',' && *p != '\r' && *p != '\n')
            ++p;
        field.append(begin, static_cast<std::size_t>(p - begin));
        pos_ += static_cast<std::size_t>(p - begin);
        if (p < end) {
            endField(static_cast<unsigned char>(*p));
            return true;
        }
    }
}

std::string lowerAscii(std::string_view text) {
    std::string out;
    lowerAscii(text, out);
    return out;
}

std::string upperAscii(std::string_view text) {
    std::string out(text);
    for (char& c : out)
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 32);
    return out;
}

void throwFileNotFound(const QString& path) {
    throw RunTimeError(errnum::FileNotFound, "File not found: " + path.toStdString());
}

} // namespace twk
