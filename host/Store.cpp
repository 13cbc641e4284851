#include "Store.h"

#include "UserError.h"

namespace tessel8::host {

namespace {

constexpr size_t kHeadBytes = 8;
constexpr size_t kBankHeaderBytes = 41;
constexpr size_t kCurrentProgram = kHeadBytes + 17;  // 32 bits, the lowest byte first

}  // namespace

Store::Store(const Plugin& plugin) {
    void* bytes = nullptr;
    const intptr_t size = plugin.dispatch(effGetChunk, 0, 0, &bytes);
    if (bytes == nullptr || size < intptr_t(kHeadBytes + kBankHeaderBytes)) {
        throw UserError("the plug-in gives no store of programs");
    }
    const auto* const first = static_cast<const uint8_t*>(bytes);
    chunk_.assign(first, first + size);  // the effect's own copy lives until its next answer only
}

void Store::makeCurrent(int32_t number) {
    for (size_t i = 0; i < sizeof number; ++i) {
        chunk_[kCurrentProgram + i] = uint8_t(uint32_t(number) >> 8 * i);
    }
}

void Store::send(const Plugin& plugin) const {
    std::vector<uint8_t> chunk = chunk_;  // the interface does not promise to leave it alone
    if (plugin.dispatch(effSetChunk, 0, intptr_t(chunk.size()), chunk.data()) == 0) {
        throw UserError("the plug-in does not take its store of programs");
    }
}

}  // namespace tessel8::host
