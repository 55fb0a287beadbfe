#pragma once
// Compact storage of the grid's texts: every text lives once in large chunks of memory
// and is addressed by a 32-bit id, so a million rows cost no heap object per cell.

#include <array>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace twk {

using StringId = std::uint32_t;
inline constexpr StringId kEmptyString = 0;

class StringPool {
public:
    StringPool();

    /// Stores a new copy of `text` and returns its id (the empty text is always id 0).
    StringId store(std::string_view text);
    /// Builds a text in place, piece by piece: beginText(), then for each piece
    /// reserveText(n) gives room for up to n bytes and advanceText(k) keeps the k bytes
    /// written there (for no bytes it may give no address); finishText() stores the text.
    /// No other text may be stored between beginText() and finishText().
    void beginText() {
        open_ = 0;
        openCapacity_ = kSlotSize - used_;
        openStart_ = openCapacity_ > 0 ? slotBase_.back() + used_ : nullptr;
        openAddress_ = (static_cast<std::uint32_t>(slotBase_.size() - 1) << kSlotBits) | used_;
    }
    char* reserveText(std::size_t bytes) {
        if (bytes > openCapacity_ - open_)
            growOpenText(bytes);
        return openStart_ + open_;
    }
    void advanceText(std::size_t bytes) { open_ += static_cast<std::uint32_t>(bytes); }
    StringId finishText() {
        if (open_ == 0)
            return kEmptyString;
        if (refs_.size() >= UINT32_MAX) [[unlikely]]
            throwOutOfMemory();
        refs_.push_back({openAddress_, open_});
        if (openCapacity_ <= kSlotSize)
            used_ = (openAddress_ & kSlotMask) + open_;
        return static_cast<StringId>(refs_.size() - 1);
    }
    /// Returns the id of an equal text stored through intern() before, or stores it.
    StringId intern(std::string_view text);
    /// Room for `count` texts, so that a load of known size grows no table.
    void reserve(std::size_t count) { refs_.reserve(count); }
    std::string_view view(StringId id) const {
        const Ref& r = refs_[id];
        return {slotBase_[r.address >> kSlotBits] + (r.address & kSlotMask), r.length};
    }
    std::size_t size() const { return refs_.size(); }
    /// Forgets every text. The memory stays for the texts that come next, until the
    /// pool is cleared again without having needed it.
    void clear();
    /// Bytes held (chunks, references and the intern table), for memory accounting.
    std::size_t memoryBytes() const;

private:
    static constexpr unsigned kSlotBits = 22; // 4 MiB address slots
    static constexpr std::uint32_t kSlotSize = 1u << kSlotBits;
    static constexpr std::uint32_t kSlotMask = kSlotSize - 1;

    struct Ref {
        std::uint32_t address; // slot << kSlotBits | offset
        std::uint32_t length;
    };
    char* allocate(std::uint32_t length, std::uint32_t& address);
    [[noreturn]] static void throwOutOfMemory();
    // A new chunk of `slots` whole slots; gives its first slot's number.
    char* newChunk(std::uint32_t slots, std::uint32_t& firstSlot);
    void growOpenText(std::size_t bytes);

    std::vector<Ref> refs_;
    struct Chunk {
        std::unique_ptr<char[]> memory;
        std::size_t bytes;
    };
    std::vector<Chunk> chunks_;
    std::vector<std::unique_ptr<char[]>> spare_; // free chunks of one slot
    std::vector<char*> slotBase_;                // per slot: where its bytes start
    std::uint32_t used_ = 0;                     // bytes used in the current (last) slot
    std::size_t chunkBytes_ = 0;
    // The text being built: where it starts, its address, its room and length.
    char* openStart_ = nullptr;
    std::uint32_t openAddress_ = 0;
    std::uint32_t openCapacity_ = 0;
    std::uint32_t open_ = 0;
    std::unordered_map<std::string_view, StringId> interned_;
};

/// Remembers recently stored texts so that repeated ones share an id, with a fixed
/// number of slots: unlike intern() its memory does not grow with the texts seen.
class RecentTexts {
public:
    StringId get(StringPool& pool, std::string_view text) {
        const std::uint64_t h = hash(text);
        Slot& slot = slots_[h & (kSlots - 1)];
        // The hash is compared first so that a new text touches no stored text.
        if (slot.id == kEmptyString || slot.hash != h || pool.view(slot.id) != text) {
            slot.id = pool.store(text);
            slot.hash = h;
        }
        return slot.id;
    }
    void clear() { slots_.fill(Slot{}); }

private:
    // Mixes the text eight bytes at a time; short texts of a log column are typical.
    static std::uint64_t hash(std::string_view text) {
        std::uint64_t h = text.size() * 0x9E3779B97F4A7C15ull;
        std::size_t i = 0;
        for (; i + 8 <= text.size(); i += 8) {
            std::uint64_t w;
            std::memcpy(&w, text.data() + i, 8);
            h = (h ^ w) * 0xBF58476D1CE4E5B9ull;
            h ^= h >> 31;
        }
        // The last bytes: the eight that end the text (some hashed already), or each.
        std::uint64_t tail = 0;
        if (text.size() >= 8)
            std::memcpy(&tail, text.data() + text.size() - 8, 8);
        else
            for (; i < text.size(); ++i)
                tail = (tail << 8) | static_cast<unsigned char>(text[i]);
        h = (h ^ tail) * 0x94D049BB133111EBull;
        return h ^ (h >> 29);
    }
    struct Slot {
        std::uint64_t hash = 0;
        StringId id = kEmptyString;
    };
    static constexpr std::size_t kSlots = 4096;
    std::array<Slot, kSlots> slots_{};
};

} // namespace twk
