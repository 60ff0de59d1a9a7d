// vorlane-cli: the editor's sentences, checks and conversion on the command line.
#include <iostream>
#include <string>
#include <vector>

#include "cli/cli.h"

int main(int argc, char* argv[]) {
  std::ios::sync_with_stdio(false);
  const std::vector<std::string> args(argv + 1, argv + argc);
  return cli::Run_Program(args, std::cout, std::cerr);
}
