// SPDX-License-Identifier: MIT
// The program's entry point.
#include "platform/desktop.h"
#include "startup/program.h"

int main(int argc, char** argv) {
  const auto desktop = sorvex::MakeDesktop(argc, argv);
  return sorvex::RunProgram(*desktop);
}
