#include "logs/EventTypeRecognizer.h"

#include "logs/Vocabulary.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace twk {

namespace {

// A test on the message. Phrases are searched case-blind; prefix and suffix tests
// compare exactly. A test holds when all its parts hold.
struct Test {
    int type;
    std::vector<int> phrases; // indices into the phrase list (case-blind "contains")
    std::string_view prefix;  // exact start, empty for none
    std::string_view suffix;  // exact end, empty for none
};

// Folds ASCII capitals and the two-byte UTF-8 Latin-1 capitals to small letters.
void foldInto(std::string& out, std::string_view s) {
    out.resize(s.size());
    unsigned char prev = 0;
    for (std::size_t i = 0; i < s.size(); ++i) {
        auto c = static_cast<unsigned char>(s[i]);
        const unsigned char orig = c;
        if (c >= 'A' && c <= 'Z')
            c = static_cast<unsigned char>(c + 32);
        else if (prev == 0xC3 && c >= 0x80 && c <= 0x9E && c != 0x97)
            c = static_cast<unsigned char>(c + 0x20);
        out[i] = static_cast<char>(c);
        prev = orig;
    }
}

class Recognizer {
public:
    Recognizer(std::vector<std::string_view> phrases, std::vector<Test> tests)
        : tests_(std::move(tests)) {
        for (const auto phrase : phrases) {
            std::string folded;
            foldInto(folded, phrase);
            phrases_.push_back(folded);
        }
        // All phrases have at least two bytes: index them by their first two.
        firstPair_.fill(0);
        for (std::size_t i = 0; i < phrases_.size(); ++i) {
            const auto a = static_cast<unsigned char>(phrases_[i][0]);
            const auto b = static_cast<unsigned char>(phrases_[i][1]);
            firstPair_[pairKey(a, b)] |= std::uint32_t{1} << i;
        }
    }

    int recognize(std::string_view message) const {
        thread_local std::string folded;
        foldInto(folded, message);
        const std::uint32_t found = scan(folded);
        int type = kImageNoEventType;
        for (const Test& t : tests_) {
            bool holds = true;
            for (const int p : t.phrases)
                holds = holds && (found & (std::uint32_t{1} << p)) != 0;
            if (!t.prefix.empty())
                holds = holds && message.starts_with(t.prefix);
            if (!t.suffix.empty())
                holds = holds && message.ends_with(t.suffix);
            if (holds)
                type = t.type;
        }
        return type;
    }

private:
    static std::size_t pairKey(unsigned char a, unsigned char b) {
        return (static_cast<std::size_t>(a) << 8) | b;
    }

    std::uint32_t scan(std::string_view s) const {
        std::uint32_t found = 0;
        if (s.size() < 2)
            return found;
        const auto* data = reinterpret_cast<const unsigned char*>(s.data());
        for (std::size_t i = 0; i + 1 < s.size(); ++i) {
            std::uint32_t candidates = firstPair_[pairKey(data[i], data[i + 1])] & ~found;
            while (candidates != 0) {
                const int p = __builtin_ctz(candidates);
                candidates &= candidates - 1;
                const std::string& phrase = phrases_[static_cast<std::size_t>(p)];
                if (phrase.size() <= s.size() - i &&
                    std::memcmp(data + i, phrase.data(), phrase.size()) == 0)
                    found |= std::uint32_t{1} << p;
            }
        }
        return found;
    }

    std::vector<std::string> phrases_;
    std::vector<Test> tests_;
    std::array<std::uint32_t, 65536> firstPair_{};
};

const Recognizer& english() {
    static const Recognizer r(
        {"Established communication", "Unable to communicate",
         "Time Synchronization has been established", "Time Synchronization has been lost",
         "Local database is open", "Local database has been closed", "registered as an NCP",
         "deregistered as an NCP", "Remote console connection granted",
         "Remote console connection cleared", "Remote console connection refused",
         "Login is now disabled", "intruder lock-out", "intruder detection", "deactivated",
         "audit", "TTS shut down", "Novell Licensing Services", "Bindery open", "Bindery close",
         "System time changed", "Synthetic time", "POLICY MANAGER", "Router configuration error"},
        {{7, {0}, {}, {}},   {8, {1}, {}, {}},   {9, {2}, {}, {}},   {10, {3}, {}, {}},
         {11, {4}, {}, {}},  {12, {5}, {}, {}},  {13, {6}, {}, {}},  {14, {7}, {}, {}},
         {15, {8}, {}, {}},  {16, {9}, {}, {}},  {17, {10}, {}, {}}, {18, {11}, {}, {}},
         {19, {12}, {}, {}}, {19, {13}, {}, {}}, {20, {14}, {}, {}}, {23, {15}, {}, {}},
         {21, {16}, {}, {}}, {22, {17}, {}, {}}, {27, {18}, {}, {}}, {28, {19}, {}, {}},
         {29, {20}, {}, {}}, {30, {21}, {}, {}}, {31, {22}, {}, {}}, {32, {23}, {}, {}}});
    return r;
}

const Recognizer& german() {
    static const Recognizer r(
        {"Zeitsynchronisierung aufgebaut", "Abfragezyklen abgebrochen",
         "Lokale Datenbank ist offen", "Lokale Datenbank wurde geschlossen",
         "Anmeldung ist nun deaktiviert", "Sperre des unbefugten Benutzers", "deaktiviert",
         "Revision", "TTS heruntergefahren", "NLS", "Öffnen der Bindery",
         "Schließen der Bindery", "Systemzeit", "geändert", "POLICY MANAGER", "Router"},
        {{7, {}, "Kommunikation", "hergestellt"},
         {8, {}, "Kommunikation", "nicht möglich"},
         {9, {0}, {}, {}},
         {10, {1}, {}, {}},
         {11, {2}, {}, {}},
         {12, {3}, {}, {}},
         {15, {}, "Fernkonsolenverbindung", "gewährt"},
         {16, {}, "Fernkonsolenverbindung", "getrennt"},
         {17, {}, "Fernkonsolenverbindung", "abgelehnt"},
         {18, {4}, {}, {}},
         {19, {5}, {}, {}},
         {20, {6}, "Gerät", {}},
         {23, {7}, {}, {}},
         {21, {8}, {}, {}},
         {22, {9}, {}, {}},
         {27, {10}, {}, {}},
         {28, {11}, {}, {}},
         {29, {12, 13}, {}, {}},
         {31, {14}, {}, {}},
         {32, {15}, {}, {}}});
    return r;
}

} // namespace

int iEventType(std::string_view message, LogLanguage language) {
    return language == LogLanguage::German ? german().recognize(message)
                                           : english().recognize(message);
}

} // namespace twk
