#include "update/VersionManifest.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace hmatnik {

namespace {

struct Case
{
    const char *name;
    QByteArray json;
    std::optional<VersionManifest> expected;
};

void PrintTo(const Case &value, std::ostream *out)
{
    *out << value.name;
}

class VersionManifestTest : public testing::TestWithParam<Case>
{
};

const VersionManifest withoutNotes{u"1.2.0"_s, u"https://a.example/x"_s, std::nullopt};

} // namespace

TEST_P(VersionManifestTest, Decodes)
{
    EXPECT_EQ(VersionManifest::decode(GetParam().json), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Bodies, VersionManifestTest,
    testing::Values(
        Case{
            "all", R"({"version":"1.2.0","url":"https://a.example/x","notes":"Rychlejší start"})",
            VersionManifest{u"1.2.0"_s, u"https://a.example/x"_s, u"Rychlejší start"_s}},
        Case{"notes absent", R"({"version":"1.2.0","url":"https://a.example/x"})", withoutNotes},
        Case{
            "notes null", R"({"version":"1.2.0","url":"https://a.example/x","notes":null})",
            withoutNotes},
        Case{
            "notes empty", R"({"version":"1.2.0","url":"https://a.example/x","notes":""})",
            VersionManifest{u"1.2.0"_s, u"https://a.example/x"_s, u""_s}},
        Case{
            "extra members",
            R"({"a":[{"version":3}],"version":"1.2.0","url":"https://a.example/x","notes2":1})",
            withoutNotes},
        Case{
            "byte order mark",
            "\xEF\xBB\xBF"
            R"({"version":"1.2.0","url":"https://a.example/x"})",
            withoutNotes},
        Case{
            "empty texts", R"({"version":"","url":""})",
            VersionManifest{u""_s, u""_s, std::nullopt}},
        Case{"version missing", R"({"url":"https://a.example/x"})", std::nullopt},
        Case{"url missing", R"({"version":"1.2.0"})", std::nullopt},
        Case{
            "other case of letters", R"({"Version":"1.2.0","url":"https://a.example/x"})",
            std::nullopt},
        Case{"version a number", R"({"version":1.2,"url":"https://a.example/x"})", std::nullopt},
        Case{"version null", R"({"version":null,"url":"https://a.example/x"})", std::nullopt},
        Case{"url null", R"({"version":"1.2.0","url":null})", std::nullopt},
        Case{"url an object", R"({"version":"1.2.0","url":{}})", std::nullopt},
        Case{
            "notes a number", R"({"version":"1.2.0","url":"https://a.example/x","notes":7})",
            std::nullopt},
        Case{
            "notes false", R"({"version":"1.2.0","url":"https://a.example/x","notes":false})",
            std::nullopt},
        Case{"array", R"([{"version":"1.2.0","url":"https://a.example/x"}])", std::nullopt},
        Case{"truncated", R"({"version":"1.2.0","url":"https://a.exa)", std::nullopt},
        Case{"brace missing", R"({"version":"1.2.0","url":"https://a.example/x")", std::nullopt},
        Case{
            "trailing garbage", R"({"version":"1.2.0","url":"https://a.example/x"} x)",
            std::nullopt},
        Case{
            "broken UTF-8",
            "{\"version\":\"1.2.0\",\"url\":\"https://a.example/x\",\"notes\":\"\xFF\"}",
            std::nullopt},
        Case{"markup", "<html>404</html>", std::nullopt}, Case{"empty", "", std::nullopt},
        Case{"null", "null", std::nullopt},
        Case{"deep nesting", QByteArray(100'000, '['), std::nullopt}));

} // namespace hmatnik
