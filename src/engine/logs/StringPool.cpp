#include "logs/StringPool.h"

#include "core/ErrorCapture.h"

#include <algorithm>
#include <cstring>

namespace twk {

StringPool::StringPool() {
    clear();
}

void StringPool::clear() {
    // The chunks of one slot are kept for the next texts (a log is mostly followed by
    // another of like size, or by itself again); those kept last time and not used since
    // are given back.
    spare_.clear();
    for (auto& chunk : chunks_)
        if (chunk.bytes == kSlotSize)
            spare_.push_back(std::move(chunk.memory));
    chunks_.clear();
    refs_.clear();
    slotBase_.clear();
    interned_ = {};
    chunkBytes_ = 0;
    used_ = kSlotSize; // forces a new chunk on the first store
    static const char kNothing = 0;
    slotBase_.push_back(const_cast<char*>(&kNothing));
    refs_.push_back({0, 0});
}

void StringPool::throwOutOfMemory() {
    throw RunTimeError(errnum::OutOfMemory, "Out of memory");
}

char* StringPool::allocate(std::uint32_t length, std::uint32_t& address) {
    if (length <= kSlotSize - used_) {
        const auto slot = static_cast<std::uint32_t>(slotBase_.size() - 1);
        char* at = slotBase_.back() + used_;
        address = (slot << kSlotBits) | used_;
        used_ += length;
        return at;
    }
    // A new chunk: one slot, or as many whole slots as a long text needs.
    const std::uint32_t slots = length <= kSlotSize ? 1 : (length + kSlotSize - 1) / kSlotSize;
    std::uint32_t firstSlot = 0;
    char* base = newChunk(slots, firstSlot);
    address = firstSlot << kSlotBits;
    // A long text fills its slots; the next text starts a fresh chunk.
    used_ = slots == 1 ? length : kSlotSize;
    return base;
}

char* StringPool::newChunk(std::uint32_t slots, std::uint32_t& firstSlot) {
    if (slotBase_.size() + slots > (std::size_t{1} << (32 - kSlotBits)))
        throwOutOfMemory();
    const std::size_t bytes = std::size_t{slots} * kSlotSize;
    if (slots == 1 && !spare_.empty()) {
        chunks_.push_back({std::move(spare_.back()), bytes});
        spare_.pop_back();
    } else {
        chunks_.push_back({std::make_unique_for_overwrite<char[]>(bytes), bytes});
    }
    chunkBytes_ += bytes;
    char* base = chunks_.back().memory.get();
    firstSlot = static_cast<std::uint32_t>(slotBase_.size());
    for (std::uint32_t i = 0; i < slots; ++i)
        slotBase_.push_back(base + std::size_t{i} * kSlotSize);
    return base;
}

void StringPool::growOpenText(std::size_t bytes) {
    // The text moves to the start of a fresh chunk with room for it and the new bytes.
    const std::uint64_t needed = std::uint64_t{open_} + bytes;
    if (needed > UINT32_MAX)
        throwOutOfMemory();
    const auto slots = static_cast<std::uint32_t>((needed + kSlotSize - 1) / kSlotSize);
    std::uint32_t firstSlot = 0;
    char* base = newChunk(slots, firstSlot);
    if (open_ > 0)
        std::memcpy(base, openStart_, open_);
    openStart_ = base;
    openAddress_ = firstSlot << kSlotBits;
    openCapacity_ = static_cast<std::uint32_t>(
        std::min<std::uint64_t>(std::uint64_t{slots} * kSlotSize, UINT32_MAX));
    // A text of several slots closes its chunk; in one slot it is the current slot.
    used_ = slots <= 1 ? 0 : kSlotSize;
}

StringId StringPool::store(std::string_view text) {
    if (text.empty())
        return kEmptyString;
    if (text.size() > UINT32_MAX || refs_.size() >= UINT32_MAX)
        throwOutOfMemory();
    std::uint32_t address = 0;
    char* at = allocate(static_cast<std::uint32_t>(text.size()), address);
    std::memcpy(at, text.data(), text.size());
    refs_.push_back({address, static_cast<std::uint32_t>(text.size())});
    return static_cast<StringId>(refs_.size() - 1);
}

StringId StringPool::intern(std::string_view text) {
    if (text.empty())
        return kEmptyString;
    if (const auto it = interned_.find(text); it != interned_.end())
        return it->second;
    const StringId id = store(text);
    interned_.emplace(view(id), id);
    return id;
}

std::size_t StringPool::memoryBytes() const {
    return chunkBytes_ + spare_.size() * kSlotSize + refs_.capacity() * sizeof(Ref) +
           slotBase_.capacity() * sizeof(char*) +
           interned_.size() * (sizeof(std::string_view) + sizeof(StringId) + 2 * sizeof(void*));
}

} // namespace twk
