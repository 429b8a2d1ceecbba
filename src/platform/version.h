// SPDX-License-Identifier: MIT
// The program's version information, the only place where it is defined.
#pragma once

namespace sorvex::version {

inline constexpr char kTitle[] = "Sorvex";
inline constexpr int kMajor = 1;
inline constexpr int kMinor = 0;
inline constexpr int kRevision = 0;
inline constexpr char kComments[] = "A game to test how accurate you are with the mouse";
inline constexpr char kLegalCopyright[] = "(c) 2026 Sorvex authors, MIT licence";

}  // namespace sorvex::version
