#include "installed/registry_value.h"

#include <array>

#include "tests/installed/scratch_machine.h"

namespace {

struct ValueCase {
    const char* description;
    DWORD type;
    std::string data;
    LSTATUS result;
    std::string text;
};

std::string terminated(std::size_t length) {
    return std::string(length, 'x') + '\0';
}

class StringValue : public testing::TestWithParam<ValueCase> {};

TEST_P(StringValue, IsReadByItsTypeSizeAndTerminator) {
    const ValueCase& value = GetParam();
    const ScratchMachine machine;
    machine.setValue("A", "Value", value.type, value.data);
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExA(HKEY_LOCAL_MACHINE, "A", 0, KEY_READ, &key), ERROR_SUCCESS);

    std::array<char, 300> buffer;
    buffer.fill('#');
    DWORD size = 260;
    EXPECT_EQ(readStringValue(key, "Value", buffer.data(), size), value.result);
    EXPECT_EQ(size, value.result == ERROR_SUCCESS ? value.data.size() : 0u);
    if (value.result == ERROR_SUCCESS) {
        EXPECT_EQ(std::string(buffer.data()), value.text);
    }
    for (std::size_t guard = 260; guard < buffer.size(); ++guard) {
        ASSERT_EQ(buffer[guard], '#') << guard;
    }
    RegCloseKey(key);
}

INSTANTIATE_TEST_SUITE_P(
    All, StringValue,
    testing::Values(ValueCase{"Empty", REG_SZ, "", 0, ""},
                    ValueCase{"Text", REG_SZ, terminated(3), 0, "xxx"},
                    ValueCase{"Expandable", REG_EXPAND_SZ, std::string("%a%\0", 4), 0, "%a%"},
                    ValueCase{"InnerZero", REG_SZ, std::string("a\0b\0", 4), 0, "a"},
                    ValueCase{"HighBytes", REG_SZ, std::string("\xE9\x80\0", 3), 0, "\xE9\x80"},
                    ValueCase{"Fits", REG_SZ, terminated(259), 0, std::string(259, 'x')},
                    ValueCase{"OneTooLong", REG_SZ, terminated(260), 234, ""},
                    ValueCase{"FarTooLong", REG_SZ, terminated(65535), 234, ""},
                    ValueCase{"Unterminated", REG_SZ, "xxx", 13, ""},
                    ValueCase{"UnterminatedFull", REG_SZ, std::string(260, 'x'), 13, ""},
                    ValueCase{"Binary", REG_BINARY, terminated(3), 13, ""},
                    ValueCase{"EmptyBinary", REG_BINARY, "", 13, ""},
                    ValueCase{"Number", REG_DWORD, std::string("ABC\0", 4), 13, ""},
                    ValueCase{"List", REG_MULTI_SZ, std::string("a\0\0", 3), 13, ""}),
    [](const auto& info) { return std::string(info.param.description); });

TEST(StringValueWithoutBuffer, TellsItsSize) {
    const ScratchMachine machine;
    machine.setText("A", "Value", "abc");
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExA(HKEY_LOCAL_MACHINE, "A", 0, KEY_READ, &key), ERROR_SUCCESS);
    DWORD size = 0;
    EXPECT_EQ(readStringValue(key, "Value", nullptr, size), ERROR_SUCCESS);
    EXPECT_EQ(size, 4u);
    EXPECT_EQ(readStringValue(key, "Missing", nullptr, size), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(size, 0u);
    RegCloseKey(key);
}

}  // namespace
