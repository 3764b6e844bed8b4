// Saves the data folder given on the command line over and over, each round with new content,
// until it is killed. The kill test stops it at random moments and checks the files.

#include <cstdio>
#include <filesystem>

#include "Generations.h"
#include "model/Store.h"

using namespace velmora;

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: velmora_save_loop DIR\n");
        return 2;
    }
    const std::filesystem::path dir = argv[1];
    model::Store store;
    store.setPaths(dir / "foods.db", dir);
    const auto report = store.load();
    if (!report.errors.empty() || !report.userFileRead) {
        std::fprintf(stderr, "velmora_save_loop: the folder did not load completely\n");
        return 1;
    }
    long k = std::max(test::generationOf(store.shared.header2),
                      test::generationOf(store.journal.days.front().notes[0]));
    std::printf("ready\n");
    std::fflush(stdout);
    for (;;) {
        ++k;
        test::applyGeneration(store.shared, k);
        test::applyGeneration(store.journal, k);
        if (!store.saveShared().ok() || !store.saveCurrentUser().ok())
            return 1;
    }
}
