#include "logs/GridExport.h"

#include "core/Engine.h"

#include <string>
#include <string_view>

namespace twk {

namespace {

// Collects output in a block and writes it in large pieces.
class Out {
public:
    explicit Out(std::FILE* f) : f_(f) { buf_.reserve(kBlock + 4096); }
    ~Out() { flush(); }
    void put(std::string_view s) {
        buf_.append(s);
        if (buf_.size() >= kBlock)
            flush();
    }
    void put(char c) { buf_.push_back(c); }
    void flush() {
        if (!buf_.empty())
            std::fwrite(buf_.data(), 1, buf_.size(), f_);
        buf_.clear();
    }

private:
    static constexpr std::size_t kBlock = 1 << 16;
    std::FILE* f_;
    std::string buf_;
};

void jsonString(Out& out, std::string_view s) {
    static const char* const kHex = "0123456789abcdef";
    out.put('"');
    std::size_t plain = 0;
    for (std::size_t i = 0; i < s.size(); ++i) {
        const auto c = static_cast<unsigned char>(s[i]);
        if (c >= 0x20 && c != '"' && c != '\\')
            continue;
        out.put(s.substr(plain, i - plain));
        plain = i + 1;
        switch (c) {
        case '"':
            out.put("\\\"");
            break;
        case '\\':
            out.put("\\\\");
            break;
        case '\n':
            out.put("\\n");
            break;
        case '\r':
            out.put("\\r");
            break;
        case '\t':
            out.put("\\t");
            break;
        default: {
            const char esc[] = {'\\', 'u', '0', '0', kHex[c >> 4], kHex[c & 15]};
            out.put(std::string_view(esc, sizeof esc));
        }
        }
    }
    out.put(s.substr(plain));
    out.put('"');
}

void csvField(Out& out, std::string_view s) {
    if (s.find_first_of(",\"\r\n") == std::string_view::npos) {
        out.put(s);
        return;
    }
    out.put('"');
    for (const char c : s) {
        if (c == '"')
            out.put('"');
        out.put(c);
    }
    out.put('"');
}

} // namespace

void writeGridJson(const Engine& engine, std::FILE* file, bool visibleOnly) {
    const Grid& g = engine.Grid1;
    Out out(file);
    out.put("{\"view\":");
    jsonString(out, engine.view.CurrentView.toStdString());
    out.put(",\"rows\":[");
    bool firstRow = true;
    for (int r = 1; r <= g.Rows(); ++r) {
        if (visibleOnly && !g.RowVisible(r))
            continue;
        out.put(firstRow ? "\n[" : ",\n[");
        firstRow = false;
        for (int c = 1; c <= g.Cols(); ++c) {
            if (c > 1)
                out.put(',');
            if (g.column(c).iconColumn) {
                const int icon = g.CellIcon(r, c);
                out.put(icon < 0 ? std::string("null") : std::to_string(icon));
            } else {
                jsonString(out, g.CellText(r, c));
            }
        }
        out.put(']');
    }
    out.put("],\n\"panes\":[");
    for (int p = 1; p <= 5; ++p) {
        if (p > 1)
            out.put(',');
        jsonString(out, engine.view.pane(p).text.toStdString());
    }
    out.put("]}\n");
}

void writeGridCsv(const Engine& engine, std::FILE* file, bool visibleOnly) {
    const Grid& g = engine.Grid1;
    Out out(file);
    for (int c = 1; c <= g.Cols(); ++c) {
        if (c > 1)
            out.put(',');
        csvField(out, g.column(c).header);
    }
    out.put("\r\n");
    for (int r = 1; r <= g.Rows(); ++r) {
        if (visibleOnly && !g.RowVisible(r))
            continue;
        for (int c = 1; c <= g.Cols(); ++c) {
            if (c > 1)
                out.put(',');
            if (g.column(c).iconColumn) {
                const int icon = g.CellIcon(r, c);
                if (icon >= 0)
                    out.put(std::to_string(icon));
            } else {
                csvField(out, g.CellText(r, c));
            }
        }
        out.put("\r\n");
    }
}

} // namespace twk
