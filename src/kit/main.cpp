// SPDX-License-Identifier: MIT
// sorvex-theme: what makers of themes run to learn what is wrong with theirs.
#include "kit/command.h"

int main(int argc, char** argv) { return sorvex::RunThemeCommand({argv + 1, argv + argc}); }
