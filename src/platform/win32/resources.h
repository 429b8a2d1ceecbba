// SPDX-License-Identifier: MIT
// Identifiers of the program's resources: macros, since the resource compiler reads this file too.
#pragma once

// The shell uses the first icon as the program's icon.
#define IDI_WINDOW 1
#define IDI_FOLDER 2
#define IDI_ABOUT 3
#define IDC_INFO_HAND 1
#define IDC_LINK_HAND 2
#define IDR_HIGH_SCORES 1
#define IDR_CANVAS 2
#define IDR_LOGO 3

// The input box; its buttons are IDOK and IDCANCEL.
#define IDD_INPUT_BOX 1
#define IDC_PROMPT 100
#define IDC_ANSWER 101
