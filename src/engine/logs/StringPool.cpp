#include "logs/StringPool.h"

#include "core/ErrorCapture.h"

#include <cstring>

namespace twk {

StringPool::StringPool() { clear(); }

void StringPool::clear() {
    refs_.clear();
    refs_.shrink_to_fit();
    chunks_.clear();
    slotBase_.clear();
    interned_ = {};
    chunkBytes_ = 0;
    used_ = kSlotSize; // forces a new chunk on the first store
    static const char kNothing = 0;
    slotBase_.push_back(const_cast<char*>(&kNothing));
    refs_.push_back({0, 0});
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
    if (slotBase_.size() + slots > (std::size_t{1} << (32 - kSlotBits)))
        throw RunTimeError(errnum::OutOfMemory, "Out of memory");
    const std::size_t bytes = std::size_t{slots} * kSlotSize;
    chunks_.push_back(std::make_unique_for_overwrite<char[]>(bytes));
    chunkBytes_ += bytes;
    char* base = chunks_.back().get();
    const auto firstSlot = static_cast<std::uint32_t>(slotBase_.size());
    for (std::uint32_t i = 0; i < slots; ++i)
        slotBase_.push_back(base + std::size_t{i} * kSlotSize);
    address = firstSlot << kSlotBits;
    // A long text fills its slots; the next text starts a fresh chunk.
    used_ = slots == 1 ? length : kSlotSize;
    return base;
}

StringId StringPool::store(std::string_view text) {
    if (text.empty())
        return kEmptyString;
    if (text.size() > UINT32_MAX || refs_.size() >= UINT32_MAX)
        throw RunTimeError(errnum::OutOfMemory, "Out of memory");
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
    return chunkBytes_ + refs_.capacity() * sizeof(Ref) + slotBase_.capacity() * sizeof(char*) +
           interned_.size() * (sizeof(std::string_view) + sizeof(StringId) + 2 * sizeof(void*));
}

} // namespace twk
