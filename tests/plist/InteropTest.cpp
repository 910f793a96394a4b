// Another implementation reads our files, and we read its files.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <unistd.h>

#include "plist/Samples.h"
#include "plist/Writer.h"

namespace quorvi::plist {
namespace {

class Interop : public testing::Test {
  protected:
    void SetUp() override {
        if (std::system("python3 -c 'import plistlib' >/dev/null 2>&1") != 0)
            GTEST_SKIP() << "no python3 with plistlib here";
        std::string folder = testing::TempDir() + "/quorvi-interop-XXXXXX";
        ASSERT_NE(mkdtemp(folder.data()), nullptr);
        m_folder = folder;
    }
    void TearDown() override {
        if (!m_folder.empty())
            std::filesystem::remove_all(m_folder);
    }

    /// Runs the script with our file and the path of another file as its arguments.
    bool python(const std::string& script) const {
        std::ofstream(m_folder / "script.py") << "import sys, plistlib, datetime, math\n" << script;
        const auto quoted = [&](const char* name) { return " '" + (m_folder / name).string() + "'"; };
        return std::system(("python3" + quoted("script.py") + quoted("ours") + quoted("theirs")).c_str()) ==
               0;
    }

    std::filesystem::path file(const char* name) const { return m_folder / name; }

  private:
    std::filesystem::path m_folder;
};

TEST_F(Interop, PythonReadsWhatWeWrite) {
    const auto items = Array::create();
    for (const Value& item : {Value(1), Value(true), Value(false), Value(0.3F), Value(1e300), Value(-5)})
        items.append(item);
    const auto d = Dictionary::create();
    d.set("text", u"a<b>&\u00E9\U0001F600\n\t");
    d.set("bad", std::u16string{0xD800, u'\x1', 0xFFFE, u'\0'});
    d.set("k<\xC3\xA9\x01", u"key");
    d.set("items", items);
    d.set("data", Data(100, 7));
    d.set("big", samples::readBody("<integer>18446744073709551615</integer>"));
    d.set("date", samples::readBody("<date>1601-02-03T04:05:06Z</date>"));
    d.set("empty", Dictionary::create());
    std::ofstream(file("ours"), std::ios::binary) << writeXml(d).value_or("");
    EXPECT_TRUE(python(R"(
d = plistlib.load(open(sys.argv[1], 'rb'))
assert d['text'] == 'a<b>&\u00e9\U0001f600\n\t', d['text']
assert d['bad'] == '\ufffd' * 4, d['bad']
assert d['k<\u00e9\ufffd'] == 'key', d.keys()
assert d['items'] == [1, True, False, 0.30000001192092896, 1e300, -5], d['items']
assert d['data'] == bytes([7] * 100), d['data']
assert d['big'] == 2 ** 64 - 1, d['big']
assert d['date'] == datetime.datetime(1601, 2, 3, 4, 5, 6), d['date']
assert d['empty'] == {}, d['empty']
)"));
}

TEST_F(Interop, WeReadWhatPythonWrites) {
    for (const char* format : {"XML", "BINARY"}) {
        ASSERT_TRUE(python(std::string("f = plistlib.FMT_") + format + R"(
plistlib.dump({'text': 'a<b>&\u00e9\U0001f600',
    'items': [1, True, 2.5, -5, 2 ** 64 - 1], 'data': bytes(range(256)),
    'date': datetime.datetime(2075, 1, 2, 3, 4, 5), 'long': 'x' * 1000, 'same': ['x' * 1000] * 20},
    open(sys.argv[2], 'wb'), fmt=f)
)"));
        const auto d = readPropertyListFile(file("theirs")).value.dictionary();
        ASSERT_EQ(d.size(), 6U) << format;
        EXPECT_EQ(d.string("text"), u"a<b>&\u00E9\U0001F600");
        const auto items = d.array("items");
        ASSERT_EQ(items.size(), 5U);
        EXPECT_EQ(items.value(0), Value(1));
        EXPECT_EQ(items.value(1), Value(true));
        EXPECT_EQ(items.value(2), Value(2.5));
        EXPECT_EQ(items.value(3), Value(-5));
        EXPECT_EQ(items.value(4).real(), 18446744073709551615.0);
        ASSERT_TRUE(d.value("data").data());
        EXPECT_EQ(d.value("data").data()->size(), 256U);
        EXPECT_NE(writeXml(d.value("date")).value_or("").find("2075-01-02T03:04:05Z"), std::string::npos);
        EXPECT_EQ(d.array("same").size(), 20U);
    }
}

} // namespace
} // namespace quorvi::plist
