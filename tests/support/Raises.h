#pragma once

#include "Core/Exception.h"

#include <gtest/gtest.h>

#include <string>

/// Runs `action` and reports what it raised as "source:line", "" if it raised nothing. An
/// exception that is no `Error` passes through and fails the test.
template <class Error, class Action>
std::string raisedBy(Action&& action) {
    try {
        action();
    } catch (const Error& error) {
        return error.getSource() + ":" + std::to_string(error.getLine());
    }
    return "";
}

#define EXPECT_RAISES(Error, place, ...) EXPECT_EQ(place, raisedBy<Error>([&] { __VA_ARGS__; }))
