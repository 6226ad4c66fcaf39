// SPDX-License-Identifier: MIT
// FormFileTest: reading and writing form files, whole and damaged.
#include "host/formfile/FormFile.h"

#include <gtest/gtest.h>

#include <fstream>
#include <limits>
#include <random>

#include "host/formfile/BatchFiles.h"

namespace {

using namespace Quorvane;
using namespace Quorvane::Host;
using namespace std::string_literals;

// A form with one control whose block holds these lines.
std::string WithProperties(const std::string& lines) {
    return "Version 1\nBegin Form F\nBegin A.B C\n" + lines + "\nEnd\nEnd\n";
}

FormValue ValueOf(const std::string& text) {
    const FormFile form = ParseFormFile(WithProperties("Key = " + text));
    const FormProperty* const property = form.Controls.at(0).Properties.Find(u"Key");
    return property ? property->Value : FormValue(false);
}

FormFile FormWith(FormProperties properties) {
    FormFile form;
    form.Name = u"F";
    form.Controls.push_back({u"A.B", u"C", std::move(properties)});
    return form;
}

FormFile FormWith(FormValue value) {
    FormProperties properties;
    properties.Set({u"Key", std::move(value)});
    return FormWith(std::move(properties));
}

std::string ErrorOf(const std::string& text, int& line) {
    try {
        ParseFormFile(text);
        return "no error";
    } catch (const FormFileError& error) {
        line = error.Line;
        return error.what();
    }
}

TEST(FormFile, ReadsFormAndControlsInOrder) {
    const FormFile form = ParseFormFile("' About this form\r\n'second\r\n\r\nversion 1 ' format\r\n"
                                        "BEGIN FORM Room\r\n"
                                        "\tCaption = \"Room\"  ' shown\r\n"
                                        "\tBegin Vendor.Control.1 Heater\r\n"
                                        "\t\tLeft=8\r\n"
                                        "\t\t' a comment\r\n"
                                        "\t\tbeginproperty Font\r\n"
                                        "\t\t\tName = \"Tahoma\"\r\n"
                                        "\t\tENDPROPERTY\r\n"
                                        "\tEnd\r\n"
                                        "\tBegin {00000000-0000-0000-0000-000000000001} Second\r\n"
                                        "\tend ' Second\r\n"
                                        "\tTail = 1\r\n"
                                        "End");
    EXPECT_EQ(form.Comments, (std::vector<Text>{u" About this form", u"second"}));
    EXPECT_EQ(form.Name, u"Room");
    FormProperties properties;
    properties.Set({u"Caption", u"Room"s});
    properties.Set({u"Tail", 1});
    EXPECT_EQ(form.Properties, properties);
    FormProperties font;
    font.Set({u"Name", u"Tahoma"s});
    FormProperties heater;
    heater.Set({u"Left", 8});
    heater.Set({u"Font", font});
    ASSERT_EQ(form.Controls.size(), 2u);
    EXPECT_EQ(form.Controls[0], (FormControl{u"Vendor.Control.1", u"Heater", heater}));
    EXPECT_EQ(form.Controls[1],
              (FormControl{u"{00000000-0000-0000-0000-000000000001}", u"Second", {}}));
}

TEST(FormFile, ReadsEveryKindOfValue) {
    const struct {
        std::string Text;
        FormValue Value;
    } cases[] = {
        {"True", true},
        {"false", false},
        {"0", 0},
        {"-2147483648", std::numeric_limits<std::int32_t>::min()},
        {"2147483647", 2147483647},
        {"2147483648", 2147483648.0},
        {"0.25", 0.25},
        {"-1.5e-3", -0.0015},
        {"1E+20", 1e20},
        {"&H80000005&", HexNumber{0x80000005}},
        {"&hff", HexNumber{255}},
        {"\"\"", u""s},
        {"\"a b\"", u"a b"s},
        {"\"it's \"\"so\"\"\" ' comment", u"it's \"so\""s},
        {"\"\"\"\"", u"\""s},
        {"\"\xE6\xB8\xA9\xE5\xBA\xA6\"", u"\u6E29\u5EA6"s},
        {"\"a\" & ChrW(13) & chrw ( 10 ) & \"b\"", u"a\r\nb"s},
        {"ChrW(0)", u"\0"s},
        {"ChrW(55357)", u"\xD83D"s},
        {"\"one \" & _ ' goes on\n  \"two\" & _\n\"three\"", u"one twothree"s},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ValueOf(c.Text), c.Value) << c.Text;
}

TEST(FormFile, WordsOfTheFormatMayNameProperties) {
    const FormFile form =
        ParseFormFile(WithProperties("End = 1\nBegin = 2\nBeginProperty = 3\nTrue = False"));
    FormProperties expected;
    expected.Set({u"End", 1});
    expected.Set({u"Begin", 2});
    expected.Set({u"BeginProperty", 3});
    expected.Set({u"True", false});
    EXPECT_EQ(form.Controls.at(0).Properties, expected);
}

TEST(FormFile, KeysMatchWithoutRegardToCase) {
    FormProperties properties;
    properties.Set({u"Caption", u"one"s});
    properties.Set({u"Size", 2});
    properties.Set({u"CAPTION", u"three"s});
    ASSERT_NE(properties.Find(u"caption"), nullptr);
    EXPECT_EQ(properties.Find(u"caption")->Value, FormValue(u"three"s));
    EXPECT_EQ(properties.begin()->Key, u"CAPTION");
    EXPECT_TRUE(properties.Remove(u"cAPTION"));
    EXPECT_FALSE(properties.Remove(u"Caption"));
    EXPECT_EQ(properties.Find(u"Caption"), nullptr);
    EXPECT_NE(properties.Find(u"Size"), nullptr);
}

TEST(FormFile, NamesTheLineOfEveryDamage) {
    const struct {
        const char* Text;
        int Line;
        const char* Part;
    } cases[] = {
        {"", 0, "starts with 'Version 1'"},
        {"\n' only a comment\n", 2, "starts with 'Version 1'"},
        {"MZ\x01\x02", 1, "control character"},
        {"VERSION 5.00\n", 1, "not known"},
        {"Version 2\n", 1, "not known"},
        {"Version 1 2\n", 1, "should end"},
        {"Version 1\n", 1, "ends where 'Begin Form'"},
        {"Version 1\nBegin Form\n", 2, "form's name"},
        {"Version 1\nBegin A.B F\n", 2, "'Begin Form'"},
        {"Version 1\nBegin Form 1F\n", 2, "form's name"},
        {"Version 1\nBegin Form F G\n", 2, "before 'G'"},
        {"Version 1\nBegin Form F\n", 2, "ends where the form's 'End'"},
        {"Version 1\nBegin Form F\nEnd\nx\n", 4, "nothing may follow"},
        {"Version 1\nBegin Form F\nBegin\n", 3, "class"},
        {"Version 1\nBegin Form F\nBegin A.B\n", 3, "control's name"},
        {"Version 1\nBegin Form F\nBegin A.B C\n", 3, "begun in line 3"},
        {"Version 1\nBegin Form F\nBegin A.B C\nEnd\nBegin A.B c\n", 5, "named 'c'"},
        {"Version 1\nBegin Form F\nBegin A.B C\nBegin A.B D\n", 4, "cannot hold another"},
        {"Version 1\nBegin Form F\nKey\n", 3, "'=' is expected after 'Key'"},
        {"Version 1\nBegin Form F\n= 1\n", 3, "property's name"},
        {"Version 1\nBegin Form F\nKey =\n", 3, "is expected here"},
        {"Version 1\nBegin Form F\nA = 1\na = 2\n", 4, "named 'a'"},
        {"Version 1\nBegin Form F\nA = 1 2\n", 3, "before '2'"},
        {"Version 1\nBegin Form F\nA = \"x\n", 3, "closing quotation mark"},
        {"Version 1\nBegin Form F\nA = \"x\"\"\n", 3, "closing quotation mark"},
        {"Version 1\nBegin Form F\nA = \"x\" &\n", 3, "a text in quotation marks"},
        {"Version 1\nBegin Form F\nA = \"x\" & 1\n", 3, "a text in quotation marks"},
        {"Version 1\nBegin Form F\nA = \"x\" & _ y\n", 3, "before 'y'"},
        {"Version 1\nBegin Form F\nA = \"x\" & _\n", 3, "the file ends"},
        {"Version 1\nBegin Form F\nA = \"x\" & _\nEnd\n", 4, "a text in quotation marks"},
        {"Version 1\nBegin Form F\nA = ChrW(65536)\n", 3, "0 to 65535"},
        {"Version 1\nBegin Form F\nA = ChrW(-1)\n", 3, "0 to 65535"},
        {"Version 1\nBegin Form F\nA = ChrW(1\n", 3, "0 to 65535"},
        {"Version 1\nBegin Form F\nA = ChrW\n", 3, "0 to 65535"},
        {"Version 1\nBegin Form F\nA = &H\n", 3, "hexadecimal"},
        {"Version 1\nBegin Form F\nA = &O17\n", 3, "hexadecimal"},
        {"Version 1\nBegin Form F\nA = &H100000000\n", 3, "hexadecimal"},
        {"Version 1\nBegin Form F\nA = &H12G4\n", 3, "hexadecimal"},
        {"Version 1\nBegin Form F\nA = nan\n", 3, "'nan'"},
        {"Version 1\nBegin Form F\nA = -inf\n", 3, "'-inf'"},
        {"Version 1\nBegin Form F\nA = 1e999\n", 3, "'1e999'"},
        {"Version 1\nBegin Form F\nA = 1,5\n", 3, "before ',5'"},
        {"Version 1\nBegin Form F\nA = 0x10\n", 3, "'0x10'"},
        {"Version 1\nBegin Form F\nA = Truely\n", 3, "'Truely'"},
        {"Version 1\nBegin Form F\nBeginProperty\n", 3, "property's name"},
        {"Version 1\nBegin Form F\nBeginProperty A\n", 3, "begun in line 3"},
        {"Version 1\nBegin Form F\nBeginProperty A\nEnd\n", 4, "'=' is expected"},
        {"Version 1\nBegin Form F\nA = \"a\tb\x02\"\n", 3, "control character"},
        {"Version 1\nBegin Form F\nA = \"\xC3\x28\"\n", 3, "not UTF-8"},
    };
    for (const auto& c : cases) {
        int line = -1;
        EXPECT_NE(ErrorOf(c.Text, line).find(c.Part), std::string::npos)
            << c.Text << "\ngave: " << ErrorOf(c.Text, line);
        EXPECT_EQ(line, c.Line) << c.Text;
    }
}

TEST(FormFile, CountsLinesAlikeWhateverEndsThem) {
    for (const std::string& end : {"\n"s, "\r"s, "\r\n"s}) {
        for (const std::string& damage : {"Key = \xC3("s, "Key ="s, "Key = \"\x01\""s}) {
            try {
                ParseFormFile("' One" + end + "Version 1" + end + end + damage);
                ADD_FAILURE() << "accepted " << damage;
            } catch (const FormFileError& error) {
                EXPECT_EQ(error.Line, 4) << damage;
            }
        }
    }
}

TEST(FormFile, RefusesZeroBytesAndEndlessNesting) {
    int line = -1;
    EXPECT_NE(ErrorOf("Version 1\nBegin Form F\nA = \"a\0b\"\n"s, line).find("control character"),
              std::string::npos);
    EXPECT_EQ(line, 3);
    std::string nested = "Version 1\nBegin Form F\n";
    for (int i = 0; i < 100000; ++i)
        nested += "BeginProperty P\n";
    EXPECT_NE(ErrorOf(nested, line).find("nested too deeply"), std::string::npos);
    EXPECT_EQ(line, 11);
}

TEST(FormFile, RefusesEndlessBlocks) {
    std::string properties = "Version 1\nBegin Form F\n";
    std::string controls = properties;
    for (int i = 1; i <= 1001; ++i) {
        properties += "P" + std::to_string(i) + " = 1\n";
        controls += "Begin A.B C" + std::to_string(i) + "\nEnd\n";
    }
    int line = -1;
    EXPECT_EQ(ErrorOf(properties, line), "the block has too many properties");
    EXPECT_EQ(line, 1003);
    EXPECT_EQ(ErrorOf(controls, line), "the form has too many controls");
    EXPECT_EQ(line, 2003);
}

TEST(FormFile, ReadsBackWhatItWrites) {
    const FormValue values[] = {
        true,
        false,
        std::numeric_limits<std::int32_t>::min(),
        HexNumber{0},
        HexNumber{0xFFFFFFFF},
        0.1 + 0.2,
        5.0,
        -0.0,
        1e300,
        std::numeric_limits<double>::denorm_min(),
        std::numeric_limits<double>::max(),
        u""s,
        u"\"quoted\" and 'apostrophe' & _"s,
        u"line\r\nline\ttab\0zero\x7F\uFEFF\u2028"s,
        u"\xDC00\xD800 halves \xD800"s,
        Text(1000, u'x'),
        Text(71, u'x') + u"\U0001F525 fire",
        Text(300, u'\n'),
        Text(200, u'"'),
        FormProperties(),
    };
    for (const FormValue& value : values) {
        const FormFile form = FormWith(value);
        EXPECT_EQ(ParseFormFile(WriteFormFile(form)), form) << WriteFormFile(form);
    }
}

TEST(FormFile, ReadsBackRandomTexts) {
    std::mt19937 random(1);
    for (int round = 0; round < 500; ++round) {
        Text text(random() % 200, u' ');
        for (char16_t& c : text)
            c = static_cast<char16_t>(random() % 3 == 0 ? random() : random() % 128);
        const FormFile form = FormWith(text);
        ASSERT_EQ(ParseFormFile(WriteFormFile(form)), form) << testing::PrintToString(text);
    }
}

TEST(FormFile, WritesReadableText) {
    FormProperties font;
    font.Set({u"Name", u"Tahoma"s});
    font.Set({u"Size", 9.0});
    FormProperties properties;
    properties.Set({u"BackColor", HexNumber{0x80000005}});
    properties.Set({u"Font", font});
    properties.Set({u"Text", Text(80, u'x')});
    FormFile form = FormWith(std::move(properties));
    form.Comments = {u" Hello"};
    form.Properties.Set({u"Caption", u"a\nb"s});
    EXPECT_EQ(WriteFormFile(form), "' Hello\n"
                                   "Version 1\n"
                                   "Begin Form F\n"
                                   "    Caption = \"a\" & ChrW(10) & \"b\"\n"
                                   "    Begin A.B C\n"
                                   "        BackColor = &H80000005&\n"
                                   "        BeginProperty Font\n"
                                   "            Name = \"Tahoma\"\n"
                                   "            Size = 9.0\n"
                                   "        EndProperty\n"
                                   "        Text = \"" +
                                       std::string(72, 'x') + "\" & _\n            \"" +
                                       std::string(8, 'x') +
                                       "\"\n"
                                       "    End\n"
                                       "End\n");
}

TEST(FormFile, RefusesToWriteWhatItCouldNotReadBack) {
    EXPECT_THROW(WriteFormFile(FormWith(std::numeric_limits<double>::infinity())), FormFileError);
    EXPECT_THROW(WriteFormFile(FormWith(std::numeric_limits<double>::quiet_NaN())), FormFileError);
    FormFile form = FormWith(FormProperties());
    form.Name = u"two words";
    EXPECT_THROW(WriteFormFile(form), FormFileError);
    form.Name = u"F";
    form.Comments = {u"one\nBegin Form Other"};
    EXPECT_THROW(WriteFormFile(form), FormFileError);
    form.Comments.clear();
    form.Controls[0].Class = u"A.B C\nEnd";
    EXPECT_THROW(WriteFormFile(form), FormFileError);
}

// Whatever happens to a file, it is read or refused with a line of its own, and never more.
TEST(FormFile, SurvivesDamageAnywhere) {
    FormProperties properties;
    properties.Set({u"Text", u"a\r\n\"b\"\u6E29"s + Text(80, u'x')});
    properties.Set({u"Number", -1.5e-7});
    properties.Set({u"Colour", HexNumber{0x123456}});
    properties.Set({u"Font", FormProperties()});
    const std::string whole = WriteFormFile(FormWith(std::move(properties)));
    const int lines = static_cast<int>(std::count(whole.begin(), whole.end(), '\n'));
    std::mt19937 random(2);
    int refused = 0;
    for (int round = 0; round < 20000; ++round) {
        std::string damaged = whole;
        for (unsigned i = 0; i <= random() % 3; ++i) {
            const std::size_t at = random() % damaged.size();
            switch (random() % 4) {
            case 0:
                damaged[at] = static_cast<char>(random());
                break;
            case 1:
                damaged.erase(at, random() % 40 + 1);
                break;
            case 2:
                damaged.insert(at, damaged.substr(random() % damaged.size(), random() % 40 + 1));
                break;
            default:
                damaged[at] = "\"'&_=()\n\r.{"[random() % 11];
            }
        }
        try {
            const FormFile form = ParseFormFile(damaged);
            EXPECT_EQ(ParseFormFile(WriteFormFile(form)), form) << damaged;
        } catch (const FormFileError& error) {
            ++refused;
            EXPECT_GE(error.Line, 0) << damaged;
            EXPECT_LE(error.Line, 3 * lines) << damaged;
        }
    }
    EXPECT_GT(refused, 1000);
}

class FormFileOnDisk : public testing::Test {
  protected:
    void SetUp() override {
        folder_ = std::filesystem::temp_directory_path() / "quorvane form \xC3\xA4";
        std::filesystem::remove_all(folder_);
        std::filesystem::create_directories(folder_);
    }
    void TearDown() override { std::filesystem::remove_all(folder_); }

    std::filesystem::path folder_;
};

TEST_F(FormFileOnDisk, ReplacesTheFileAndReadsItBack) {
    const std::filesystem::path path = folder_ / "a.form";
    SaveFormFile(path, FormWith(u"old"s));
    const FormFile form = FormWith(u"new"s);
    SaveFormFile(path, form);
    EXPECT_EQ(ReadFormFile(path), form);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_), {}), 1);
}

TEST_F(FormFileOnDisk, AFailedSaveLeavesTheOldFile) {
    const std::filesystem::path path = folder_ / "a.form";
    const FormFile form = FormWith(u"old"s);
    SaveFormFile(path, form);
    EXPECT_THROW(SaveFormFile(path, FormWith(std::numeric_limits<double>::infinity())),
                 FormFileError);
    EXPECT_EQ(ReadFormFile(path), form);
    EXPECT_THROW(SaveFormFile(folder_ / "missing" / "a.form", form), FormFileError);
    EXPECT_THROW(SaveFormFile(folder_, form), FormFileError);
}

TEST_F(FormFileOnDisk, RefusesAPathWithAZeroCharacter) {
    // The platform reads a path as far as its first zero, so these would name the victim.
    const std::filesystem::path victim = folder_ / "victim";
    const FormFile form = FormWith(u"old"s);
    SaveFormFile(victim, form);
    std::ofstream(folder_ / "InData.txt") << "1\n";
    std::ofstream(folder_ / "OutData.txt") << "2\n";
    for (const std::string& end : {"\0"s, "\0\0"s, "\0.form"s}) {
        std::filesystem::path path = victim;
        path += end;
        EXPECT_THROW(SaveFormFile(path, FormWith(u"new"s)), FormFileError);
        EXPECT_THROW(ReadFormFile(path), FormFileError);
        EXPECT_THROW(ReadBatch(folder_ / end, 1, 1), std::runtime_error);
    }
    EXPECT_EQ(ReadFormFile(victim), form);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_), {}), 3);
}

TEST_F(FormFileOnDisk, RefusesWhatIsMissingOrTooLarge) {
    EXPECT_THROW(ReadFormFile(folder_ / "missing.form"), FormFileError);
    EXPECT_THROW(ReadFormFile(folder_), FormFileError);
    const std::filesystem::path large = folder_ / "large.form";
    std::ofstream(large).close();
    std::filesystem::resize_file(large, (16u << 20) + 1);
    try {
        ReadFormFile(large);
        ADD_FAILURE() << "accepted a file of more than 16 MB";
    } catch (const FormFileError& error) {
        EXPECT_STREQ(error.what(), "the file is larger than 16 MB");
    }
}

} // namespace
