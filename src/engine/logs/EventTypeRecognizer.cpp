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
constexpr unsigned char recognizerFoldByte(unsigned char c) {
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
// offset. The rows of states where phrases end lie at kAccepting and above, all others
// below it, so a step is two loads and an add, and one compare tells whether a phrase
// ended among several steps.
class PhraseScanner {
    static constexpr std::uint32_t kAccepting = 0x8000;

public:
    explicit PhraseScanner(const std::vector<std::string_view>& phrases) {
        classOf_.fill(0);
        int classes = 1;
        std::array<int, 256> classOfFolded{};
        for (const auto phrase : phrases)
            for (const char ch : phrase) {
                const unsigned char f = recognizerFoldByte(static_cast<unsigned char>(ch));
                if (classOfFolded[f] == 0)
                    classOfFolded[f] = classes++;
            }
        for (int b = 0; b < 256; ++b)
            classOf_[static_cast<std::size_t>(b)] = static_cast<std::uint8_t>(
                classOfFolded[recognizerFoldByte(static_cast<unsigned char>(b))]);
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
        std::vector<std::size_t> delta(states * stride_, 0);
        std::vector<int> queue;
        for (std::size_t c = 0; c < stride_; ++c) {
            const int s = next[0][c];
            delta[c] = static_cast<std::size_t>(s < 0 ? 0 : s);
            if (s > 0)
                queue.push_back(s);
        }
        for (std::size_t qi = 0; qi < queue.size(); ++qi) {
            const auto s = static_cast<std::size_t>(queue[qi]);
            out[s] |= out[static_cast<std::size_t>(fail[s])];
            for (std::size_t c = 0; c < stride_; ++c) {
                const int t = next[s][c];
                const std::size_t viaFail = delta[static_cast<std::size_t>(fail[s]) * stride_ + c];
                if (t < 0)
                    delta[s * stride_ + c] = viaFail;
                else {
                    delta[s * stride_ + c] = static_cast<std::size_t>(t);
                    fail[static_cast<std::size_t>(t)] = static_cast<int>(viaFail);
                    queue.push_back(t);
                }
            }
        }
        // Row offsets: the start state first, then the other states without a phrase
        // end, then from the next power of two on the states with one.
        std::vector<std::size_t> rowOf(states, 0);
        std::size_t plainRows = 0;
        for (std::size_t s = 0; s < states; ++s)
            if (out[s] == 0)
                rowOf[s] = (plainRows++) * stride_;
        const std::size_t accepting = kAccepting;
        std::size_t acceptingRows = 0;
        for (std::size_t s = 0; s < states; ++s)
            if (out[s] != 0)
                rowOf[s] = accepting + (acceptingRows++) * stride_;
        const std::size_t tableSize = accepting + acceptingRows * stride_;
        if (plainRows * stride_ > kAccepting || tableSize > 0x10000 || out[0] != 0)
            throw std::length_error("phrase table too large for 16-bit rows");
        table_.assign(tableSize, 0);
        outByRow_.assign(tableSize, 0);
        for (std::size_t s = 0; s < states; ++s) {
            outByRow_[rowOf[s]] = out[s];
            for (std::size_t c = 0; c < stride_; ++c)
                table_[rowOf[s] + c] = static_cast<std::uint16_t>(rowOf[delta[s * stride_ + c]]);
        }
    }

    std::uint32_t scan(std::string_view message) const {
        const auto* p = reinterpret_cast<const unsigned char*>(message.data());
        return continueScan(p, p + message.size(), 0);
    }

    /// True for a byte that no phrase holds: it sends the automaton back to its start.
    bool isSeparator(unsigned char byte) const { return classOf_[byte] == 0; }

    // Scans [p, end) from the state `row`.
    std::uint32_t continueScan(const unsigned char* p, const unsigned char* end,
                               std::uint32_t row) const {
        std::uint32_t found = 0;
        const std::uint16_t* table = table_.data();
        // Four steps, then one test whether a phrase ended among them: phrase ends are
        // rare, so the common case runs without a branch per byte.
        while (end - p >= 4) {
            const std::uint32_t r0 = table[row + classOf_[p[0]]];
            const std::uint32_t r1 = table[r0 + classOf_[p[1]]];
            const std::uint32_t r2 = table[r1 + classOf_[p[2]]];
            const std::uint32_t r3 = table[r2 + classOf_[p[3]]];
            if ((r0 | r1 | r2 | r3) >= kAccepting) [[unlikely]]
                found |= outByRow_[r0] | outByRow_[r1] | outByRow_[r2] | outByRow_[r3];
            row = r3;
            p += 4;
        }
        for (; p < end; ++p) {
            row = table[row + classOf_[*p]];
            found |= outByRow_[row];
        }
        return found;
    }

    // Scans `text`, messages joined by separator bytes, with `starts[m]` the place of
    // message m (ascending, starts[0] == 0), and ORs into found[m] the phrases of each.
    // Four stretches that begin at message starts run in lock step: the steps of one
    // stretch wait on each other, those of different stretches do not.
    void scanJoined(std::string_view text, const std::uint32_t* starts, std::size_t count,
                    std::uint32_t* found) const {
        const auto* base = reinterpret_cast<const unsigned char*>(text.data());
        // Lane k starts at the first message at or after k/4 of the text.
        Lanes lanes{{}, {}, starts, count, found};
        std::size_t m = 0;
        for (std::size_t k = 1; k < kLanes; ++k) {
            const std::size_t wanted = text.size() * k / kLanes;
            while (m < count && starts[m] < wanted)
                ++m;
            lanes.bound[k] = m < count ? starts[m] : text.size();
            lanes.message[k] = m;
        }
        lanes.bound[kLanes] = text.size();
        const auto& bound = lanes.bound;
        std::size_t steps = text.size();
        for (std::size_t k = 0; k < kLanes; ++k)
            steps = std::min(steps, bound[k + 1] - bound[k]);
        const unsigned char* p = base + bound[0];
        const unsigned char* const stop = p + steps;
        const std::ptrdiff_t d1 = static_cast<std::ptrdiff_t>(bound[1] - bound[0]);
        const std::ptrdiff_t d2 = static_cast<std::ptrdiff_t>(bound[2] - bound[0]);
        const std::ptrdiff_t d3 = static_cast<std::ptrdiff_t>(bound[3] - bound[0]);
        const std::uint16_t* table = table_.data();
        const std::uint8_t* classOf = classOf_.data();
        std::uint32_t r0 = 0, r1 = 0, r2 = 0, r3 = 0;
        for (; p != stop; ++p) {
            r0 = table[r0 + classOf[p[0]]];
            r1 = table[r1 + classOf[p[d1]]];
            r2 = table[r2 + classOf[p[d2]]];
            r3 = table[r3 + classOf[p[d3]]];
            if ((r0 | r1 | r2 | r3) >= kAccepting) [[unlikely]]
                noteFour(r0, r1, r2, r3, static_cast<std::size_t>(p - base) - bound[0], lanes);
        }
        // The rest of each stretch alone.
        const std::array<std::uint32_t, kLanes> rows = {r0, r1, r2, r3};
        for (std::size_t k = 0; k < kLanes; ++k) {
            std::uint32_t row = rows[k];
            for (std::size_t at = bound[k] + steps; at < bound[k + 1]; ++at) {
                row = table[row + classOf[base[at]]];
                if (row >= kAccepting)
                    note(k, row, at, lanes);
            }
        }
    }

private:
    static constexpr std::size_t kLanes = 4;
    // Where the lanes of a joined text start, and the message each stands in.
    struct Lanes {
        std::array<std::size_t, kLanes + 1> bound;
        std::array<std::size_t, kLanes> message;
        const std::uint32_t* starts;
        std::size_t count;
        std::uint32_t* found;
    };
    // The phrases that end in state `row` at `place` of lane k go to the message standing
    // there; a lane's places only grow, so its message is found by walking on.
    void note(std::size_t k, std::uint32_t row, std::size_t place, Lanes& lanes) const {
        if (outByRow_[row] == 0)
            return;
        std::size_t& m = lanes.message[k];
        while (m + 1 < lanes.count && lanes.starts[m + 1] <= place)
            ++m;
        lanes.found[m] |= outByRow_[row];
    }
    // The same for the four lanes, `step` bytes into each: kept out of line, so that the
    // rare case costs the loop no registers.
    [[gnu::noinline]] void noteFour(std::uint32_t r0, std::uint32_t r1, std::uint32_t r2,
                                    std::uint32_t r3, std::size_t step, Lanes& lanes) const {
        note(0, r0, lanes.bound[0] + step, lanes);
        note(1, r1, lanes.bound[1] + step, lanes);
        note(2, r2, lanes.bound[2] + step, lanes);
        note(3, r3, lanes.bound[3] + step, lanes);
    }

    std::array<std::uint8_t, 256> classOf_{};
    std::size_t stride_ = 1;
    std::vector<std::uint16_t> table_;
    std::vector<std::uint32_t> outByRow_;
};

class Recognizer {
public:
    Recognizer(const std::vector<std::string_view>& phrases, std::vector<Test> tests)
        : scanner_(phrases), tests_(std::move(tests)) {
        if (!scanner_.isSeparator(static_cast<unsigned char>(kSeparator)))
            throw std::logic_error("a phrase holds the separator byte");
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
        // The messages are joined into one text, a separator after each, and scanned
        // together in a few long stretches rather than one by one.
        thread_local std::string joined;
        thread_local std::vector<std::uint32_t> starts;
        thread_local std::vector<std::uint32_t> found;
        constexpr std::size_t kJoinedBytes = 1u << 16;
        for (std::size_t first = 0; first < count;) {
            joined.clear();
            starts.clear();
            std::size_t last = first;
            while (last < count &&
                   (last == first || joined.size() + messages[last].size() < kJoinedBytes)) {
                starts.push_back(static_cast<std::uint32_t>(joined.size()));
                joined.append(messages[last]);
                joined.push_back(kSeparator);
                ++last;
            }
            found.assign(last - first, 0);
            scanner_.scanJoined(joined, starts.data(), starts.size(), found.data());
            for (std::size_t i = first; i < last; ++i)
                types[i] = recognize(messages[i], found[i - first]);
            first = last;
        }
    }

private:
    // A carriage return never stands in a message (it ends lines) nor in a phrase.
    static constexpr char kSeparator = '\r';

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
