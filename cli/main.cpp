// ostrel: the command line face of OstrelCore for lesson authors and lesson player developers.
#include <string>
#include <vector>

#include "command_line.h"

int main(int argc, char** argv) { return ostrel::cli::RunOstrel(std::vector<std::string>(argv + 1, argv + argc)); }
