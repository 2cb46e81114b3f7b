#pragma once

#include <gtest/gtest.h>

#include <string>

namespace velmora::journeys {

/// What a second process of the tests is given: it restores one file and saves another.
struct SecondRun {
    std::string evaluation;  ///< its name, see Expected
    std::string saved;
    std::string saved_again;
};

/// "--second-run", behind which the three stand.
inline constexpr const char* kSecondRun = "--second-run";

/// Makes the second run the one test of this process.
void RegisterSecondRun(const SecondRun& run);

/// Runs this same program once more, as a second process. True when it found everything; what it
/// printed otherwise.
::testing::AssertionResult RunAgain(const SecondRun& run);

}  // namespace velmora::journeys
