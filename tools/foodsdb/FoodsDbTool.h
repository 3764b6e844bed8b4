#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace velmora::foodsdb {

// The program velmora-foodsdb. args excludes the program name. Writes the result line to `out`,
// the progress line (carriage-return updates) and errors to `err`. Returns 0 on success, 1 for a
// missing or damaged input or a failed write (no output file is left behind), 2 for bad usage.
int runFoodsDbTool(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

} // namespace velmora::foodsdb
