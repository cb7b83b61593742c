// SPDX-License-Identifier: MIT
#include "keymapper/key_mapping_document.h"

#include "keymapper/rule_text.h"

#include <gtest/gtest.h>

namespace pimloft {
namespace {

const QUuid anId(QStringLiteral("{6f9619ff-8b86-d011-b42d-00cf4fc964ff}"));

const QByteArray aMapping = R"({"id":"6F9619FF-8B86-D011-B42D-00CF4FC964FF","fromKeyCode":115,)"
                            R"("fromModifiersRaw":131072,"toKeyCode":123,"toModifiersRaw":1179648,)"
                            R"("excludedApps":["com.apple.Terminal","org.example.App"]})";

KeyMapping theMapping() {
    return {anId,
            Key::home,
            KeyFlags::shift,
            Key::leftArrow,
            KeyFlags::command | KeyFlags::shift,
            {QStringLiteral("com.apple.Terminal"), QStringLiteral("org.example.App")}};
}

/// The mapping with the value of one key written differently; with an empty value without that key.
QByteArray mappingWith(const QByteArray &key, const QByteArray &value) {
    QByteArrayList members;
    const std::pair<QByteArray, QByteArray> usual[] = {{"id", R"("6F9619FF-8B86-D011-B42D-00CF4FC964FF")"},
                                                       {"fromKeyCode", "115"},
                                                       {"fromModifiersRaw", "0"},
                                                       {"toKeyCode", "123"},
                                                       {"toModifiersRaw", "1048576"},
                                                       {"excludedApps", "[]"}};
    for (const auto &[name, text] : usual)
        if (name != key)
            members << '"' + name + "\":" + text;
        else if (!value.isEmpty())
            members << '"' + name + "\":" + value;
    return '[' + ("{" + members.join(',') + "}") + ']';
}

TEST(KeyMappingDocument, writesAMappingCompactWithItsKeysInOrder) {
    EXPECT_EQ(encode(KeyMappings{theMapping()}), '[' + aMapping + ']');
}

TEST(KeyMappingDocument, writesAllSixKeysAlsoWhenThereIsNothingInThem) {
    EXPECT_EQ(encode(KeyMappings{KeyMapping{.id = anId}}).toStdString(),
              R"([{"id":"6F9619FF-8B86-D011-B42D-00CF4FC964FF","fromKeyCode":0,"fromModifiersRaw":0,)"
              R"("toKeyCode":0,"toModifiersRaw":0,"excludedApps":[]}])");
}

TEST(KeyMappingDocument, writesAnExchangeDocumentCompactWithItsKeysInOrder) {
    const ExportedMappings exported{
        {{QStringLiteral("Windows Mode"), true}, {QStringLiteral("Home/End Fix"), false}}, {theMapping()}};
    EXPECT_EQ(encode(exported), R"({"presetStates":{"Windows Mode":true,"Home/End Fix":false},)"
                                R"("customMappings":[)" +
                                    aMapping + "]}");
}

TEST(KeyMappingDocument, readsWhatItHasWritten) {
    const KeyMappings mappings{
        theMapping(),
        {QUuid(), KeyCode{65535}, KeyFlags{~0ull}, KeyCode{0}, KeyFlags{1ull << 63}, {QString()}},
        {anId, KeyCode{1}, {}, KeyCode{2}, {}, {QStringLiteral("quote\" \\ / \n \u0001 ä 漢 😀")}}};
    EXPECT_EQ(decodeMappings(encode(mappings)), mappings);
    const ExportedMappings exported{{{QStringLiteral("Nobody/Knows"), true}}, mappings};
    EXPECT_EQ(decodeExportedMappings(encode(exported)), exported);
}

TEST(KeyMappingDocument, readsAnEscapedSlash) {
    const auto exported =
        decodeExportedMappings(R"({"presetStates":{"Home\/End Fix":true},"customMappings":[]})");
    ASSERT_TRUE(exported);
    EXPECT_EQ(exported->presetStates.front().first, QStringLiteral("Home/End Fix"));
}

TEST(KeyMappingDocument, readsUpperAndLowerCaseIdsAndWritesThemInUpperCase) {
    const auto mappings = decodeMappings(mappingWith("id", R"("6f9619ff-8b86-d011-B42D-00cf4fc964ff")"));
    ASSERT_TRUE(mappings);
    EXPECT_EQ(mappings->front().id, anId);
    EXPECT_TRUE(encode(*mappings).contains("6F9619FF-8B86-D011-B42D-00CF4FC964FF"));
}

TEST(KeyMappingDocument, passesOverMembersThatItDoesNotKnow) {
    EXPECT_TRUE(decodeMappings(QByteArray(mappingWith("", "")).replace("{", R"({"note":{"a":[null,1.5]},)")));
    EXPECT_TRUE(decodeExportedMappings(R"({"version":2,"presetStates":{},"customMappings":[]})"));
}

TEST(KeyMappingDocument, takesTheLastOfAMemberThatStandsTwice) {
    const auto mappings = decodeMappings(mappingWith("toKeyCode", R"("none","toKeyCode":7)"));
    ASSERT_TRUE(mappings);
    EXPECT_EQ(mappings->front().toKeyCode, KeyCode{7});
    EXPECT_FALSE(decodeMappings(mappingWith("toKeyCode", R"(7,"toKeyCode":"none")")));
}

TEST(KeyMappingDocument, readsAMarkOfTheByteOrderBeforeTheText) {
    EXPECT_TRUE(decodeMappings("\xEF\xBB\xBF[]"));
}

TEST(KeyMappingDocument, acceptsWhitespaceAndAnyOrderOfKeys) {
    EXPECT_TRUE(decodeExportedMappings(" {\n\t\"customMappings\" : [ ] ,\r\n \"presetStates\" : { } } \n"));
}

struct Numeral {
    const char *key;
    const char *text;
    std::optional<std::uint64_t> value;
};

class Numerals : public testing::TestWithParam<Numeral> {};

TEST_P(Numerals, areTakenWhenTheyAreWholeAndInRange) {
    const auto &[key, text, value] = GetParam();
    const auto mappings = decodeMappings(mappingWith(key, text));
    ASSERT_EQ(mappings.has_value(), value.has_value()) << key << ": " << text;
    if (!value)
        return;
    const KeyMapping &mapping = mappings->front();
    const std::string name = key;
    EXPECT_EQ(name == "fromKeyCode"        ? std::uint64_t(mapping.fromKeyCode)
              : name == "toKeyCode"        ? std::uint64_t(mapping.toKeyCode)
              : name == "fromModifiersRaw" ? std::uint64_t(mapping.fromModifiers)
                                           : std::uint64_t(mapping.toModifiers),
              *value)
        << key << ": " << text;
}

INSTANTIATE_TEST_SUITE_P(
    KeyMappingDocument, Numerals,
    testing::Values(
        Numeral{"fromKeyCode", "0", 0}, Numeral{"fromKeyCode", "65535", 65535},
        Numeral{"fromKeyCode", "65536", std::nullopt}, Numeral{"fromKeyCode", "-1", std::nullopt},
        Numeral{"fromKeyCode", "-1.0", std::nullopt}, Numeral{"fromKeyCode", "1.0", 1},
        Numeral{"fromKeyCode", "1e2", 100}, Numeral{"fromKeyCode", "6.5535e4", 65535},
        Numeral{"fromKeyCode", "6.5536e4", std::nullopt}, Numeral{"fromKeyCode", "1.5", std::nullopt},
        Numeral{"fromKeyCode", "1e-1", std::nullopt}, Numeral{"fromKeyCode", "-0", 0},
        Numeral{"fromKeyCode", "-0.0", 0}, Numeral{"fromKeyCode", "1e400", std::nullopt},
        Numeral{"fromKeyCode", "01", std::nullopt}, Numeral{"fromKeyCode", "+1", std::nullopt},
        Numeral{"fromKeyCode", "0x1", std::nullopt}, Numeral{"fromKeyCode", "NaN", std::nullopt},
        Numeral{"fromKeyCode", "\"1\"", std::nullopt}, Numeral{"fromKeyCode", "true", std::nullopt},
        Numeral{"fromKeyCode", "null", std::nullopt}, Numeral{"toKeyCode", "65535", 65535},
        Numeral{"toKeyCode", "65536", std::nullopt},
        Numeral{"fromModifiersRaw", "18446744073709551615", 18446744073709551615u},
        Numeral{"fromModifiersRaw", "18446744073709551616", std::nullopt},
        Numeral{"fromModifiersRaw", "1e19", 10000000000000000000u},
        Numeral{"fromModifiersRaw", "1.8446744073709551616e19", std::nullopt},
        Numeral{"fromModifiersRaw", "-1", std::nullopt}, Numeral{"fromModifiersRaw", "0.5", std::nullopt},
        Numeral{"fromModifiersRaw", "[]", std::nullopt},
        Numeral{"toModifiersRaw", "18446744073709551615", 18446744073709551615u},
        Numeral{"toModifiersRaw", "18446744073709551616", std::nullopt}));

TEST(KeyMappingDocument, readsNumbersWithAnyNumberOfZeros) {
    const QByteArray zeros(400, '0');
    const auto read = [](const QByteArray &number) {
        return decodeMappings(mappingWith("toKeyCode", number));
    };
    EXPECT_FALSE(read("0." + zeros + "777040008"));
    EXPECT_FALSE(read("1.5e-2147483647"));
    for (const QByteArray &number : {"0." + zeros + "12e402", "12." + zeros}) {
        const auto mappings = read(number);
        ASSERT_TRUE(mappings) << number.constData();
        EXPECT_EQ(mappings->front().toKeyCode, KeyCode{12});
    }
}

class RefusedMappings : public testing::TestWithParam<QByteArray> {};

TEST_P(RefusedMappings, refuseTheWholeDocument) {
    EXPECT_EQ(decodeMappings(GetParam()), std::nullopt);
    // Neither does a good rule before the bad one come through.
    if (GetParam().startsWith("[{")) {
        EXPECT_EQ(decodeMappings('[' + aMapping + ',' + GetParam().mid(1)), std::nullopt);
    }
}

INSTANTIATE_TEST_SUITE_P(
    KeyMappingDocument, RefusedMappings,
    testing::Values(
        mappingWith("id", ""), mappingWith("fromKeyCode", ""), mappingWith("fromModifiersRaw", ""),
        mappingWith("toKeyCode", ""), mappingWith("toModifiersRaw", ""), mappingWith("excludedApps", ""),
        mappingWith("excludedApps", "null"), mappingWith("excludedApps", "{}"),
        mappingWith("excludedApps", "\"com.apple.Terminal\""), mappingWith("excludedApps", "[1]"),
        mappingWith("excludedApps", "[null]"), mappingWith("excludedApps", R"(["\ud800"])"),
        mappingWith("excludedApps", "[\"\xFF\"]"), mappingWith("id", "1"), mappingWith("id", "\"\""),
        mappingWith("id", R"("{6F9619FF-8B86-D011-B42D-00CF4FC964FF}")"),
        mappingWith("id", R"("6F9619FF8B86D011B42D00CF4FC964FF")"),
        mappingWith("id", R"("6F9619FF-8B86-D011-B42D-00CF4FC964F")"),
        mappingWith("id", R"("6F9619FF-8B86-D011-B42D-00CF4FC964FG")"),
        mappingWith("id", R"("6F9619FF-8B86-D011-B42D-00CF4FC964FF ")"), mappingWith("", "").chopped(1),
        mappingWith("", "") + "x", mappingWith("", "") + "[]", QByteArray(""), QByteArray(" "),
        QByteArray("{}"), QByteArray("[1]"), QByteArray("[[]]"), QByteArray("[null]"), QByteArray("null"),
        QByteArray("[],"), QByteArray("[,]"), QByteArray("// rules\n[]"), QByteArray("\xFE\xFF\0[\0]", 6)));

class RefusedExchange : public testing::TestWithParam<QByteArray> {};

TEST_P(RefusedExchange, isRefusedAsAWhole) {
    EXPECT_EQ(decodeExportedMappings(GetParam()), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(KeyMappingDocument, RefusedExchange,
                         testing::Values(R"({"presetStates":{}})", R"({"customMappings":[]})",
                                         R"({"presetStates":{"Windows Mode":1},"customMappings":[]})",
                                         R"({"presetStates":{"Windows Mode":null},"customMappings":[]})",
                                         R"({"presetStates":{"Nobody":"true"},"customMappings":[]})",
                                         R"({"presetStates":[],"customMappings":[]})",
                                         R"({"presetStates":["Windows Mode",true],"customMappings":[]})",
                                         R"({"presetStates":null,"customMappings":[]})",
                                         R"({"presetStates":{},"customMappings":null})",
                                         R"({"presetStates":{},"customMappings":{}})",
                                         R"({"presetStates":{},"customMappings":[{}]})",
                                         R"({"PresetStates":{},"customMappings":[]})", "[]", "", "true"));

TEST(KeyMappingDocument, refusesAnExchangeDocumentThatIsTooLong) {
    QByteArray document = R"({"presetStates":{},"customMappings":[]})";
    document += QByteArray(longestExportedMappings - document.size(), ' ');
    EXPECT_TRUE(decodeExportedMappings(document));
    EXPECT_FALSE(decodeExportedMappings(document + ' '));
}

TEST(KeyMappingDocument, readsWhatTheLongestExchangeDocumentBecomesInTheFile) {
    // Each number is written at greater length than it was read.
    QByteArray rule = mappingWith("fromModifiersRaw", "1e19");
    rule = rule.mid(1, rule.size() - 2).replace("1048576", "1e19");
    const qsizetype count = (longestExportedMappings - 64) / (rule.size() + 1);
    QByteArray document = R"({"presetStates":{},"customMappings":[)" + rule;
    for (qsizetype index = 1; index < count; ++index)
        document += ',' + rule;
    const auto exported = decodeExportedMappings(document + "]}");
    ASSERT_TRUE(exported);
    const QByteArray file = encode(exported->customMappings);
    EXPECT_GT(file.size(), longestExportedMappings);
    EXPECT_EQ(decodeMappings(file), exported->customMappings);
}

TEST(KeyMappingDocument, nestingCostsNoStack) {
    const qsizetype deep = 1'000'000;
    EXPECT_FALSE(decodeMappings(QByteArray(deep, '[')));
    EXPECT_FALSE(decodeMappings(QByteArray(deep, '[') + QByteArray(deep, ']')));
    EXPECT_TRUE(decodeExportedMappings(R"({"presetStates":{},"customMappings":[],"x":)" +
                                       QByteArray(deep, '[') + QByteArray(deep, ']') + '}'));
}

}  // namespace
}  // namespace pimloft
