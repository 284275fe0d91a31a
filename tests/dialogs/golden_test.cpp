// Every dialog of the catalogue, held against golden.txt: titles, sizes, controls in the order of the Tab key, limits,
// entries, guidance, grids. `./run --golden` writes that text anew; it is read by eye when it changes.
#include <sstream>

#include "catalogue/DemoHome.h"
#include "catalogue/DialogText.h"
#include "tests/dialogs/TestHost.h"

class Golden : public TestHost {};

TEST_F(Golden, EveryDialogIsAsItIsHeld) {
    kiro::MakeDemoHome(home);
    std::ifstream held(std::filesystem::path(KIRO_GOLDEN_FILE), std::ios::binary);
    std::string expected;
    for (const kiro::CatalogueDialog& dialog : kiro::Catalogue()) {
        std::istringstream lines(kiro::DialogText(dialog));
        for (std::string line; std::getline(lines, line);) {
            expected.clear();
            std::getline(held, expected);
            ASSERT_TRUE(expected == line) << dialog.name << ", and maybe more; ./run --golden takes all as it is\n- "
                                          << expected << "\n+ " << line;
        }
    }
    EXPECT_FALSE(std::getline(held, expected)) << "and no more: " << expected;
}
