#include "platform/version_number.h"

#include "tests/rows.h"

TEST(VersionNumber, FieldsAreSplitAndEscaped) {
    using Fields = std::vector<std::string>;
    const auto split = [](char delimiter, const std::string& text) {
        Fields fields = {"left over"};
        splitFields(text, fields, delimiter);
        return fields;
    };
    expectRows<std::tuple<char, std::string>, Fields>({{{'.', ""}, {}},
                                                       {{'.', "."}, {""}},
                                                       {{'.', "1.2.."}, {"1", "2", ""}},
                                                       {{'.', "a`.b.c"}, {"a.b", "c"}},
                                                       {{'.', "a`bc.d"}, {"a`bc", "d"}},
                                                       {{'.', "a.b`"}, {"a", "b`"}},
                                                       {{'`', "a``b`c"}, {"a`b", "c"}},
                                                       {{'`', "a`b`"}, {"a", "b"}},
                                                       {{'`', "```a"}, {"`", "a"}}},
                                                      split);
}

TEST(VersionNumber, HasFourFieldsOrSaysWhyNot) {
    const std::string rule = " - version must contain 4 non-empty fields delimted by '.'";
    const std::string allowed = ", allowable characers \".0123456789\"";
    expectRows<std::string, std::string>(
        {{"10.0.0.12", "10 0 0 12 "},
         {"007.1.1.1", "7 1 1 1 "},
         {"1.2.3.4.", "1 2 3 4 "},
         {"2147483647.2147483648.4294967295.4294967297", "2147483647 -2147483648 -1 1 "},
         {"", "No version specified."},
         {"1.2.3.a", "Illegal character in version - 'a'" + allowed},
         {"1.2.3", "Encountered 3 version fields" + rule},
         {"1.2.3.4.5", "Encountered 5 version fields" + rule},
         {".1.2.3", "Version field 0 is empty" + rule},
         {"1.2.3..", "Version field 3 is empty" + rule}},
        [](const std::string& text) {
            std::vector<int> numbers = {5};
            std::string error = "left over", joined;
            const bool parsed = parseVersion(text, numbers, &error);
            EXPECT_EQ(parsed, error.empty());
            EXPECT_EQ(parseVersion(text, numbers), error.empty());
            for (const int number : numbers) {
                joined += std::to_string(number) + ' ';
            }
            return joined + error;
        });
}
