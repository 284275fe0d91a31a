// Every dialog of the catalogue, held against golden.txt: titles, sizes, controls in the order of the Tab key, limits,
// entries, guidance, grids. `./run --golden` writes that text anew; it is read by eye when it changes.
#include <fstream>
#include <iterator>

#include "catalogue/DemoHome.h"
#include "catalogue/DialogText.h"
#include "tests/dialogs/LineDifferences.h"
#include "tests/dialogs/TestHost.h"

namespace {

std::string HeldText() {
    std::ifstream in(std::filesystem::path(KIRO_GOLDEN_FILE), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace

class Golden : public TestHost {};

TEST_F(Golden, EveryDialogIsAsItIsHeld) {
    kiro::MakeDemoHome(home);
    std::string text;
    for (const kiro::CatalogueDialog& dialog : kiro::Catalogue()) {
        try {
            text += kiro::DialogText(dialog);
        } catch (const std::exception& failure) {
            ADD_FAILURE() << dialog.name << ": " << failure.what();
        }
    }
    const std::string differences = LineDifferences(HeldText(), text);
    if (!differences.empty())
        ADD_FAILURE() << "- as golden.txt holds it, + as the dialogs are; ./run --golden takes them as they are\n"
                      << differences;
}

TEST(GoldenDifferences, NameTheChapterAndShowTheLinesAround) {
    const std::string held = "==== a\n1\n2\n3\n4\n5\n==== b\n6\n7\n8\n";
    EXPECT_EQ("", LineDifferences(held, held));
    EXPECT_EQ("@@ ==== b\n ==== b\n 6\n-7\n+seven\n 8\n",
              LineDifferences(held, "==== a\n1\n2\n3\n4\n5\n==== b\n6\nseven\n8\n"));
    EXPECT_EQ("@@ ==== a\n ==== a\n 1\n+new\n 2\n 3\n", LineDifferences(held, "==== a\n1\nnew\n" + held.substr(9)));
}
