// vorlane-cli: the editor's sentences, checks and conversion on the command line.
#include <iostream>
#include <string>
#include <vector>

#include "cli/cli.h"
#include "cli/session.h"

int main(int argc, char* argv[]) {
  std::ios::sync_with_stdio(false);
  const std::vector<std::string> args(argv + 1, argv + argc);
  const int status = cli::Run(args, std::cout, std::cerr);
  if (!std::cout.flush()) {
    std::cerr << cli::Program << ": the output can't be written\n";
    return cli::Failed;
  }
  return status;
}
