// SPDX-License-Identifier: MIT
// What assistive technology is told beyond what the toolkit knows of its own widgets.
#pragma once

namespace sorvex {

/// Makes windows, images and clickable labels known with their roles, names and press actions; once, after the
/// application object was made.
void InstallAccessibility();

}  // namespace sorvex
