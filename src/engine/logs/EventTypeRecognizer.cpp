#include "logs/EventTypeRecognizer.h"

#include "logs/Vocabulary.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

namespace twk {

namespace {

// Folds a byte for the case-blind phrase search: ASCII capitals to small letters, and
// the second byte of a UTF-8 Latin-1 capital (after 0xC3) to that of its small letter.
// Continuation bytes never equal ASCII bytes, so folding them unconditionally is safe.
constexpr unsigned char foldByte(unsigned char c) {
    if (c >= 'A' && c <= 'Z')
        return static_cast<unsigned char>(c + 32);
    if (c >= 0x80 && c <= 0x9E && c != 0x97)
        return static_cast<unsigned char>(c + 0x20);
    return c;
}

// A test on the message: all its phrases found (case-blind), and the message starting
// and ending exactly as given. Tests run in order; the last one that holds wins.
struct Test {
    int type;
    std::uint32_t phrases;   // bit mask of phrase indices
    std::string_view prefix; // exact, empty for none
    std::string_view suffix; // exact, empty for none
};

// Finds all phrases in one pass over the message: an automaton over byte classes
// (folding is built into the classes) whose table entries hold the next state's row
// offset, with the top bit set where phrases end. A byte costs two loads.
class PhraseScanner {
public:
    explicit PhraseScanner(const std::vector<std::string_view>& phrases) {
        classOf_.fill(0);
        int classes = 1;
        std::array<int, 256> classOfFolded{};
        for (const auto phrase : phrases)
            for (const char ch : phrase) {
                const unsigned char f = foldByte(static_cast<unsigned char>(ch));
                if (classOfFolded[f] == 0)
                    classOfFolded[f] = classes++;
            }
        for (int b = 0; b < 256; ++b)
            classOf_[static_cast<std::size_t>(b)] =
                static_cast<std::uint8_t>(classOfFolded[foldByte(static_cast<unsigned char>(b))]);
        stride_ = static_cast<std::size_t>(classes);
        std::vector<std::vector<int>> next(1, std::vector<int>(stride_, -1));
        std::vector<std::uint32_t> out(1, 0);
        for (std::size_t p = 0; p < phrases.size(); ++p) {
            int state = 0;
            for (const char ch : phrases[p]) {
                const std::size_t c = classOf_[static_cast<unsigned char>(ch)];
                if (next[static_cast<std::size_t>(state)][c] < 0) {
                    next[static_cast<std::size_t>(state)][c] = static_cast<int>(next.size());
                    next.emplace_back(stride_, -1);
                    out.push_back(0);
                }
                state = next[static_cast<std::size_t>(state)][c];
            }
            out[static_cast<std::size_t>(state)] |= std::uint32_t{1} << p;
        }
        const std::size_t states = next.size();
        std::vector<int> fail(states, 0);
        std::vector<std::uint16_t> delta(states * stride_, 0);
        std::vector<int> queue;
        for (std::size_t c = 0; c < stride_; ++c) {
            const int s = next[0][c];
            delta[c] = static_cast<std::uint16_t>(s < 0 ? 0 : s);
            if (s > 0)
                queue.push_back(s);
        }
        for (std::size_t qi = 0; qi < queue.size(); ++qi) {
            const auto s = static_cast<std::size_t>(queue[qi]);
            out[s] |= out[static_cast<std::size_t>(fail[s])];
            for (std::size_t c = 0; c < stride_; ++c) {
                const int t = next[s][c];
                const std::uint16_t viaFail =
                    delta[static_cast<std::size_t>(fail[s]) * stride_ + c];
                if (t < 0)
                    delta[s * stride_ + c] = viaFail;
                else {
                    delta[s * stride_ + c] = static_cast<std::uint16_t>(t);
                    fail[static_cast<std::size_t>(t)] = viaFail;
                    queue.push_back(t);
                }
            }
        }
        if (states * stride_ > 0x7FFF)
            throw std::length_error("phrase table too large for 16-bit rows");
        table_.resize(delta.size());
        for (std::size_t i = 0; i < delta.size(); ++i) {
            const std::size_t target = delta[i];
            table_[i] =
                static_cast<std::uint16_t>(target * stride_) | (out[target] != 0 ? 0x8000 : 0);
        }
        outByRow_.assign(states * stride_, 0);
        for (std::size_t s = 0; s < states; ++s)
            outByRow_[s * stride_] = out[s];
    }
    std::uint32_t scan(std::string_view message) const {
        const auto* p = reinterpret_cast<const unsigned char*>(message.data());
        return continueScan(p, p + message.size(), 0);
    }

    // Scans [p, end) from the state `row`.
    std::uint32_t continueScan(const unsigned char* p, const unsigned char* end,
                               std::uint32_t row) const {
        std::uint32_t found = 0;
        const std::uint16_t* table = table_.data();
        const auto step = [&](unsigned char byte) {
            const std::uint32_t next = table[row + classOf_[byte]];
            row = next & 0x7FFF;
            return next;
        };
        // Four bytes, then one test whether a phrase ended among them: phrase ends are
        // rare, so the common case runs without a branch per byte.
        while (end - p >= 4) {
            const std::uint32_t n0 = step(p[0]);
            const std::uint32_t r0 = row;
            const std::uint32_t n1 = step(p[1]);
            const std::uint32_t r1 = row;
            const std::uint32_t n2 = step(p[2]);
            const std::uint32_t r2 = row;
            const std::uint32_t n3 = step(p[3]);
            if (((n0 | n1 | n2 | n3) & 0x8000) != 0) [[unlikely]] {
                found |= (n0 & 0x8000 ? outByRow_[r0] : 0) | (n1 & 0x8000 ? outByRow_[r1] : 0) |
                         (n2 & 0x8000 ? outByRow_[r2] : 0) | (n3 & 0x8000 ? outByRow_[row] : 0);
            }
            p += 4;
        }
        for (; p < end; ++p)
            if (step(*p) & 0x8000)
                found |= outByRow_[row];
        return found;
    }

    // Scans several messages at once, four at a time in lock step: the steps of one
    // message wait on each other, those of different messages do not.
    void scanMany(const std::string_view* messages, std::uint32_t* found, std::size_t count) const {
        constexpr std::size_t kLanes = 4;
        struct Lane {
            const unsigned char* p;
            const unsigned char* end;
            std::uint32_t row;
            std::uint32_t found;
            std::size_t message;
        };
        std::array<Lane, kLanes> lanes{};
        std::size_t nextMessage = 0;
        // Gives a lane the next message; false when there is none left.
        const auto load = [&](Lane& lane) {
            if (nextMessage == count)
                return false;
            const std::string_view m = messages[nextMessage];
            lane = {reinterpret_cast<const unsigned char*>(m.data()),
                    reinterpret_cast<const unsigned char*>(m.data()) + m.size(), 0, 0, nextMessage};
            ++nextMessage;
            return true;
        };
        std::size_t active = 0;
        while (active < kLanes && load(lanes[active]))
            ++active;
        const std::uint16_t* table = table_.data();
        while (active == kLanes) {
            std::size_t steps = static_cast<std::size_t>(lanes[0].end - lanes[0].p);
            for (std::size_t k = 1; k < kLanes; ++k)
                steps = std::min(steps, static_cast<std::size_t>(lanes[k].end - lanes[k].p));
            // The lanes' states in locals, so that they stay in registers.
            const unsigned char* p0 = lanes[0].p;
            const unsigned char* p1 = lanes[1].p;
            const unsigned char* p2 = lanes[2].p;
            const unsigned char* p3 = lanes[3].p;
            std::uint32_t r0 = lanes[0].row, r1 = lanes[1].row, r2 = lanes[2].row,
                          r3 = lanes[3].row;
            for (std::size_t j = 0; j < steps; ++j) {
                const std::uint32_t n0 = table[r0 + classOf_[p0[j]]];
                const std::uint32_t n1 = table[r1 + classOf_[p1[j]]];
                const std::uint32_t n2 = table[r2 + classOf_[p2[j]]];
                const std::uint32_t n3 = table[r3 + classOf_[p3[j]]];
                r0 = n0 & 0x7FFF;
                r1 = n1 & 0x7FFF;
                r2 = n2 & 0x7FFF;
                r3 = n3 & 0x7FFF;
                if (((n0 | n1 | n2 | n3) & 0x8000) != 0) [[unlikely]] {
                    lanes[0].found |= n0 & 0x8000 ? outByRow_[r0] : 0;
                    lanes[1].found |= n1 & 0x8000 ? outByRow_[r1] : 0;
                    lanes[2].found |= n2 & 0x8000 ? outByRow_[r2] : 0;
                    lanes[3].found |= n3 & 0x8000 ? outByRow_[r3] : 0;
                }
            }
            lanes[0].p = p0 + steps;
            lanes[1].p = p1 + steps;
            lanes[2].p = p2 + steps;
            lanes[3].p = p3 + steps;
            lanes[0].row = r0;
            lanes[1].row = r1;
            lanes[2].row = r2;
            lanes[3].row = r3;
            for (std::size_t k = 0; k < active;) {
                Lane& lane = lanes[k];
                if (lane.p != lane.end) {
                    ++k;
                    continue;
                }
                found[lane.message] = lane.found;
                if (!load(lane)) {
                    lane = lanes[active - 1];
                    --active;
                }
            }
        }
        // Fewer messages than lanes left: one after the other, each from where it stands.
        for (std::size_t k = 0; k < active; ++k) {
            const Lane& lane = lanes[k];
            found[lane.message] = lane.found | continueScan(lane.p, lane.end, lane.row);
        }
    }

private:
    std::array<std::uint8_t, 256> classOf_{};
    std::size_t stride_ = 1;
    std::vector<std::uint16_t> table_;
    std::vector<std::uint32_t> outByRow_;
};

class Recognizer {
public:
    Recognizer(const std::vector<std::string_view>& phrases, std::vector<Test> tests)
        : scanner_(phrases), tests_(std::move(tests)) {
        lastTestOfPhrase_.fill(-1);
        for (std::size_t i = 0; i < tests_.size(); ++i) {
            const Test& t = tests_[i];
            if (t.phrases == 0) {
                prefixStarts_[static_cast<unsigned char>(t.prefix.empty() ? 0 : t.prefix[0])] =
                    true;
                lastPhraselessTest_ = static_cast<int>(i);
            }
            for (int p = 0; p < 32; ++p)
                if (t.phrases & (std::uint32_t{1} << p))
                    lastTestOfPhrase_[static_cast<std::size_t>(p)] = static_cast<int>(i);
        }
    }

    int recognize(std::string_view message) const {
        return recognize(message, scanner_.scan(message));
    }

    void recognizeMany(const std::string_view* messages, int* types, std::size_t count) const {
        constexpr std::size_t kChunk = 64;
        std::array<std::uint32_t, kChunk> found{};
        for (std::size_t first = 0; first < count; first += kChunk) {
            const std::size_t n = std::min(kChunk, count - first);
            scanner_.scanMany(messages + first, found.data(), n);
            for (std::size_t i = 0; i < n; ++i)
                types[first + i] = recognize(messages[first + i], found[i]);
        }
    }

private:
    // The type of a message whose phrases are known.
    int recognize(std::string_view message, std::uint32_t found) const {
        // Without a phrase only the tests of a bare prefix can hold.
        if (found == 0 &&
            (message.empty() || !prefixStarts_[static_cast<unsigned char>(message[0])]))
            return kImageNoEventType;
        // Walk the tests back from the last one that could hold: the first that holds
        // is the last hit.
        int start = lastPhraselessTest_;
        for (std::uint32_t bits = found; bits != 0; bits &= bits - 1)
            start =
                std::max(start, lastTestOfPhrase_[static_cast<std::size_t>(__builtin_ctz(bits))]);
        for (int i = start; i >= 0; --i) {
            const Test& t = tests_[static_cast<std::size_t>(i)];
            if ((found & t.phrases) != t.phrases)
                continue;
            if (!t.prefix.empty() && !message.starts_with(t.prefix))
                continue;
            if (!t.suffix.empty() && !message.ends_with(t.suffix))
                continue;
            return t.type;
        }
        return kImageNoEventType;
    }

    PhraseScanner scanner_;
    std::vector<Test> tests_;
    std::array<bool, 256> prefixStarts_{}; // first bytes of the prefixes of phrase-less tests
    std::array<int, 32> lastTestOfPhrase_{};
    int lastPhraselessTest_ = -1;
};

constexpr std::uint32_t bit(int p) {
    return std::uint32_t{1} << p;
}

const Recognizer& english() {
    static const Recognizer r(
        {"Established communication",
         "Unable to communicate",
         "Time Synchronization has been established",
         "Time Synchronization has been lost",
         "Local database is open",
         "Local database has been closed",
         "registered as an NCP",
         "deregistered as an NCP",
         "Remote console connection granted",
         "Remote console connection cleared",
         "Remote console connection refused",
         "Login is now disabled",
         "intruder lock-out",
         "intruder detection",
         "deactivated",
         "audit",
         "TTS shut down",
         "Novell Licensing Services",
         "Bindery open",
         "Bindery close",
         "System time changed",
         "Synthetic time",
         "POLICY MANAGER",
         "Router configuration error"},
        {{7, bit(0), {}, {}},   {8, bit(1), {}, {}},   {9, bit(2), {}, {}},
         {10, bit(3), {}, {}},  {11, bit(4), {}, {}},  {12, bit(5), {}, {}},
         {13, bit(6), {}, {}},  {14, bit(7), {}, {}},  {15, bit(8), {}, {}},
         {16, bit(9), {}, {}},  {17, bit(10), {}, {}}, {18, bit(11), {}, {}},
         {19, bit(12), {}, {}}, {19, bit(13), {}, {}}, {20, bit(14), {}, {}},
         {23, bit(15), {}, {}}, {21, bit(16), {}, {}}, {22, bit(17), {}, {}},
         {27, bit(18), {}, {}}, {28, bit(19), {}, {}}, {29, bit(20), {}, {}},
         {30, bit(21), {}, {}}, {31, bit(22), {}, {}}, {32, bit(23), {}, {}}});
    return r;
}

const Recognizer& german() {
    static const Recognizer r({"Zeitsynchronisierung aufgebaut", "Abfragezyklen abgebrochen",
                               "Lokale Datenbank ist offen", "Lokale Datenbank wurde geschlossen",
                               "Anmeldung ist nun deaktiviert", "Sperre des unbefugten Benutzers",
                               "deaktiviert", "Revision", "TTS heruntergefahren", "NLS",
                               "Öffnen der Bindery", "Schließen der Bindery", "Systemzeit",
                               "geändert", "POLICY MANAGER", "Router"},
                              {{7, 0, "Kommunikation", "hergestellt"},
                               {8, 0, "Kommunikation", "nicht möglich"},
                               {9, bit(0), {}, {}},
                               {10, bit(1), {}, {}},
                               {11, bit(2), {}, {}},
                               {12, bit(3), {}, {}},
                               {15, 0, "Fernkonsolenverbindung", "gewährt"},
                               {16, 0, "Fernkonsolenverbindung", "getrennt"},
                               {17, 0, "Fernkonsolenverbindung", "abgelehnt"},
                               {18, bit(4), {}, {}},
                               {19, bit(5), {}, {}},
                               {20, bit(6), "Gerät", {}},
                               {23, bit(7), {}, {}},
                               {21, bit(8), {}, {}},
                               {22, bit(9), {}, {}},
                               {27, bit(10), {}, {}},
                               {28, bit(11), {}, {}},
                               {29, bit(12) | bit(13), {}, {}},
                               {31, bit(14), {}, {}},
                               {32, bit(15), {}, {}}});
    return r;
}

} // namespace

int iEventType(std::string_view message, LogLanguage language) {
    return language == LogLanguage::German ? german().recognize(message)
                                           : english().recognize(message);
}

void iEventTypes(const std::string_view* messages, int* types, std::size_t count,
                 LogLanguage language) {
    const Recognizer& r = language == LogLanguage::German ? german() : english();
    r.recognizeMany(messages, types, count);
}

} // namespace twk
