#include <string>

#include "journeys/second_run.h"
#include "support/qt_tests.h"

int main(int argc, char* argv[]) {
    return velmora::test::RunQtTests(argc, argv, {}, [&] {
        constexpr int kWithSecondRun = 5;
        if (argc == kWithSecondRun && argv[1] == std::string(velmora::journeys::kSecondRun)) {
            velmora::journeys::RegisterSecondRun({argv[2], argv[3], argv[4]});
        }
    });
}
