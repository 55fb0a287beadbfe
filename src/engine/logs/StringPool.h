#pragma once
// Compact storage of the grid's texts: every text lives once in large chunks of memory
// and is addressed by a 32-bit id, so a million rows cost no heap object per cell.

#include <cstdint>
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
    /// Returns the id of an equal text stored through intern() before, or stores it.
    StringId intern(std::string_view text);
    std::string_view view(StringId id) const {
        const Ref& r = refs_[id];
        return {slotBase_[r.address >> kSlotBits] + (r.address & kSlotMask), r.length};
    }
    std::size_t size() const { return refs_.size(); }
    /// Forgets every text.
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

    std::vector<Ref> refs_;
    std::vector<std::unique_ptr<char[]>> chunks_;
    std::vector<char*> slotBase_; // per slot: where its bytes start
    std::uint32_t used_ = 0;      // bytes used in the current (last) slot
    std::size_t chunkBytes_ = 0;
    std::unordered_map<std::string_view, StringId> interned_;
};

} // namespace twk
