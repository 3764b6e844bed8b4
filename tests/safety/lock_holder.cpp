// A second program for the folder-lock tests: takes the folder named by its argument, prints
// "taken" or "refused", then waits for one letter on standard input: "r" releases the folder and
// exits, anything else (or the end of the input) exits holding it, as a program that ends without
// releasing. The test may also end it by force while it waits.
#include <cstdio>
#include <cstdlib>

#include "model/FolderLock.h"

int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    velmora::model::FolderLock lock;
    const bool taken = lock.acquire(argv[1]).outcome == velmora::model::FolderLock::Outcome::Taken;
    std::fputs(taken ? "taken\n" : "refused\n", stdout);
    std::fflush(stdout);
    if (!taken)
        return 1;
    if (std::getchar() == 'r') {
        lock.release();
        return 0;
    }
    std::_Exit(0); // no destructors: the lock file keeps its holder's text, as after a crash
}
