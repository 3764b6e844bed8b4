#include <iostream>
#include <string>
#include <vector>

#include "FoodsDbTool.h"

// velmora-foodsdb: builds foods.db from USDA SR data.
int main(int argc, char** argv)
{
    std::vector<std::string> args(argv + 1, argv + argc);
    return velmora::foodsdb::runFoodsDbTool(args, std::cout, std::cerr);
}
