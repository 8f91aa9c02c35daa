// Runs the ostrel tool inside the test process, with standard input given and standard output and error caught.
#pragma once

#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "command_line.h"

namespace ostrel::cli {

struct ToolRun {
  int status = -1;
  std::string out, err;
};

inline ToolRun RunInProcess(const std::vector<std::string>& args, const std::string& input = "") {
  std::istringstream in(input);
  std::ostringstream out, err;
  std::streambuf* const savedIn = std::cin.rdbuf(in.rdbuf());
  std::streambuf* const savedOut = std::cout.rdbuf(out.rdbuf());
  std::streambuf* const savedErr = std::cerr.rdbuf(err.rdbuf());
  ToolRun run;
  run.status = RunOstrel(args);
  std::cin.rdbuf(savedIn);
  std::cout.rdbuf(savedOut);
  std::cerr.rdbuf(savedErr);
  run.out = out.str();
  run.err = err.str();
  return run;
}

}  // namespace ostrel::cli
