// What the library shows to the program that loads it. A host holds dozens of plug-ins: a stray
// symbol or a second copy of a desktop library brings down somebody else's work.

#include <elf.h>
#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

namespace {

/// The names in one kind of section of the library: of the records that `counts` picks.
template <typename Record, typename Counts, typename Name>
std::set<std::string> namesIn(uint32_t type, Counts counts, Name name) {
    std::ifstream file(TESSEL8_PLUGIN, std::ios::binary);
    const std::vector<char> bytes(std::istreambuf_iterator<char>(file), {});
    EXPECT_GT(bytes.size(), sizeof(Elf64_Ehdr));
    EXPECT_EQ(std::memcmp(bytes.data(), ELFMAG, SELFMAG), 0);
    const auto at = [&]<typename T>(size_t offset, T record) {
        std::memcpy(&record, bytes.data() + offset, sizeof record);
        return record;
    };
    const auto head = at(0, Elf64_Ehdr{});
    const auto section = [&](size_t i) {
        return at(head.e_shoff + i * head.e_shentsize, Elf64_Shdr{});
    };
    std::set<std::string> names;
    for (size_t i = 0; i < head.e_shnum; ++i) {
        const Elf64_Shdr table = section(i);
        for (size_t o = 0; table.sh_type == type && o < table.sh_size; o += sizeof(Record)) {
            const auto record = at(table.sh_offset + o, Record{});
            if (counts(record)) {
                names.insert(bytes.data() + section(table.sh_link).sh_offset + name(record));
            }
        }
    }
    return names;
}

}  // namespace

TEST(DynamicSection, ExportsTheTwoEntriesAndNothingElse) {
    if (*TESSEL8_SANITIZE) {
        GTEST_SKIP() << "a sanitizer adds symbols of its own";
    }
    const auto exported = namesIn<Elf64_Sym>(
        SHT_DYNSYM,
        [](const auto& s) {
            return s.st_shndx != SHN_UNDEF && ELF64_ST_BIND(s.st_info) != STB_LOCAL;
        },
        [](const auto& s) { return s.st_name; });
    EXPECT_EQ(exported, (std::set<std::string>{"VSTPluginMain", "main"}));
}

TEST(DynamicSection, NeedsTheCLibraryAndTheWindowSystemAtMost) {
    if (*TESSEL8_SANITIZE) {
        GTEST_SKIP() << "a sanitizer needs libraries of its own";
    }
    const std::set<std::string> kAllowed = {
        "libc.so.6",       "libm.so.6",         "ld-linux-x86-64.so.2", "libxcb.so.1",
        "libxcb-shm.so.0", "libxkbcommon.so.0", "libxkbcommon-x11.so.0"};
    const auto needed = namesIn<Elf64_Dyn>(
        SHT_DYNAMIC, [](const auto& d) { return d.d_tag == DT_NEEDED; },
        [](const auto& d) { return d.d_un.d_val; });
    EXPECT_TRUE(needed.count("libc.so.6"));
    for (const std::string& name : needed) {
        EXPECT_TRUE(kAllowed.count(name)) << name;
    }
}
