#include <gmock/gmock.h>

#include <iostream>
#include <locale>
#include <stdexcept>

/// The tests run in the locale of the environment, as inside a program that has chosen its user's:
/// where commas are decimal points, a number that asks the locale shows itself.
int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    try {
        std::locale::global(std::locale(""));
    } catch (const std::runtime_error&) {
        std::cerr << "The environment names a locale that is not installed; using \"C\".\n";
    }
    return RUN_ALL_TESTS();
}
