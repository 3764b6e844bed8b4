// velmora-cli: headless operations on the data files.
#include <cstdio>

int main()
{
    std::fputs("velmora-cli: not yet available\n", stderr);
    return 2;
}
