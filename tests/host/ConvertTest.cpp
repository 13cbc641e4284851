// Files of programs, listed and converted.

#include "HostTest.h"
#include "presets/Image.h"
#include "support/ImageWriter.h"

namespace tessel8::host::test {
namespace {

struct ConvertTest : HostTest {
    /// A flat file of the other byte order; its programs hold four values.
    std::string flat(char tag, const std::string& name, float last = 0.25F) const {
        ImageWriter writer{true};
        writer.tagged(tag);
        for (int p = 0; p < (tag == '7' ? 140 : 1); ++p) {
            writer.name(name).number(0).number(0).number(0).number(last);
        }
        std::ofstream(file("old"), std::ios::binary)
            << std::string(writer.bytes.begin(), writer.bytes.end());
        return file("old");
    }
    HostRun convert(const std::string& in, const char* out) const {
        return runHost({"convert", in, file(out)});
    }
};

TEST_F(ConvertTest, OldFormsBecomeTheCurrentOneAndThatStaysAsItIs) {
    for (const auto& [tag, out, again] :
         {std::tuple{'!', "new.vtp", "again.vtp"}, {'7', "new.VTB", "again.vtb"}}) {
        EXPECT_TRUE(succeeded(convert(flat(tag, "Old\x1b"), out)));
        const std::string image = contentsOf(file(out));
        EXPECT_EQ(image.size(), tag == '!' ? 7089U : 986761U);
        const Bytes value = ImageWriter{}.value(tag == '!' ? 0 : 139, 3, 0.25F).bytes;
        EXPECT_EQ(image.substr(image.size() - 212 * 32, 32),
                  std::string(value.begin(), value.end()));
        EXPECT_TRUE(succeeded(convert(file(out), again)));
        EXPECT_TRUE(contentsOf(file(again)) == contentsOf(file(out)));
        const HostRun list = runHost({"programs", file(out)});
        EXPECT_TRUE(list.out.starts_with("number  name\n     0  Old?\n")) << list.out;
        EXPECT_EQ(std::count(list.out.begin(), list.out.end(), '\n'), tag == '!' ? 2 : 141);
    }
}

TEST_F(ConvertTest, WrongEndingsAndDamagedFilesAreNamed) {
    EXPECT_TRUE(refused(convert(flat('!', "P"), "new.vtb"), "holds a preset: the name of the new"));
    EXPECT_TRUE(refused(convert(flat('7', "B"), "new.vtp"), "has to end in .vtb"));
    EXPECT_TRUE(refused(convert(flat('#', "?"), "new.vtp"), "in a form that is known"));
    EXPECT_TRUE(refused(convert(flat('!', "P", std::nanf("")), "new.vtp"), "holds values"));
    EXPECT_TRUE(refused(convert(file("absent"), "new.vtp"), "absent: No such file"));
    EXPECT_TRUE(refused(runHost({"programs", __FILE__}), "is not a file of this effect's"));
    EXPECT_FALSE(std::filesystem::exists(file("new.vtp")));
}

}  // namespace
}  // namespace tessel8::host::test
