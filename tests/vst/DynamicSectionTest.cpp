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

class LibraryFile {
  public:
    explicit LibraryFile(const char* path) {
        std::ifstream file(path, std::ios::binary);
        bytes.assign(std::istreambuf_iterator<char>(file), {});
    }
    bool isElf64() const {
        return bytes.size() > sizeof(Elf64_Ehdr) &&
               std::memcmp(bytes.data(), ELFMAG, SELFMAG) == 0 && bytes[EI_CLASS] == ELFCLASS64;
    }
    std::set<std::string> exports() const {
        std::set<std::string> names;
        for (const Elf64_Shdr& table : sections(SHT_DYNSYM)) {
            for (const auto& symbol : entries<Elf64_Sym>(table)) {
                if (symbol.st_shndx != SHN_UNDEF && ELF64_ST_BIND(symbol.st_info) != STB_LOCAL) {
                    names.insert(text(table, symbol.st_name));
                }
            }
        }
        return names;
    }
    std::set<std::string> needed() const {
        std::set<std::string> names;
        for (const Elf64_Shdr& table : sections(SHT_DYNAMIC)) {
            for (const auto& entry : entries<Elf64_Dyn>(table)) {
                if (entry.d_tag == DT_NEEDED) {
                    names.insert(text(table, entry.d_un.d_val));
                }
            }
        }
        return names;
    }

  private:
    template <typename Record>
    Record at(size_t offset) const {
        Record record;
        std::memcpy(&record, bytes.data() + offset, sizeof record);
        return record;
    }
    Elf64_Shdr section(size_t index) const {
        const auto head = at<Elf64_Ehdr>(0);
        return at<Elf64_Shdr>(head.e_shoff + index * head.e_shentsize);
    }
    std::vector<Elf64_Shdr> sections(uint32_t type) const {
        std::vector<Elf64_Shdr> found;
        for (size_t i = 0; i < at<Elf64_Ehdr>(0).e_shnum; ++i) {
            if (section(i).sh_type == type) {
                found.push_back(section(i));
            }
        }
        return found;
    }
    template <typename Record>
    std::vector<Record> entries(const Elf64_Shdr& table) const {
        std::vector<Record> all(table.sh_size / sizeof(Record));
        std::memcpy(all.data(), bytes.data() + table.sh_offset, all.size() * sizeof(Record));
        return all;
    }
    std::string text(const Elf64_Shdr& table, size_t offset) const {
        return bytes.data() + section(table.sh_link).sh_offset + offset;
    }

    std::vector<char> bytes;
};

}  // namespace

TEST(DynamicSection, ExportsTheTwoEntriesAndNothingElse) {
    if (*TESSEL8_SANITIZE) {
        GTEST_SKIP() << "a sanitizer adds symbols of its own";
    }
    const LibraryFile library(TESSEL8_PLUGIN);
    ASSERT_TRUE(library.isElf64());
    EXPECT_EQ(library.exports(), (std::set<std::string>{"VSTPluginMain", "main"}));
}

TEST(DynamicSection, NeedsTheCLibraryAndTheWindowSystemAtMost) {
    if (*TESSEL8_SANITIZE) {
        GTEST_SKIP() << "a sanitizer needs libraries of its own";
    }
    const std::set<std::string> kAllowed = {
        "libc.so.6",       "libm.so.6",         "ld-linux-x86-64.so.2", "libxcb.so.1",
        "libxcb-shm.so.0", "libxkbcommon.so.0", "libxkbcommon-x11.so.0"};
    const LibraryFile library(TESSEL8_PLUGIN);
    ASSERT_TRUE(library.isElf64());
    EXPECT_TRUE(library.needed().count("libc.so.6"));
    for (const std::string& name : library.needed()) {
        EXPECT_TRUE(kAllowed.count(name)) << name;
    }
}
