// Tests as rows: what is given, and what must come of it.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

/// Expects of `answer` what each row says; a tuple is given as arguments. A failure names its row
/// by what was given.
template <class Given, class Expected, class Answer>
void expectRows(std::initializer_list<std::pair<Given, Expected>> rows, Answer answer) {
    for (const auto& [given, expected] : rows) {
        SCOPED_TRACE("in the row given " + testing::PrintToString(given));
        if constexpr (std::is_invocable_v<Answer, Given>) {
            EXPECT_EQ(answer(given), expected);
        } else {
            EXPECT_EQ(std::apply(answer, given), expected);
        }
    }
}
