// SPDX-License-Identifier: MIT
// Accessible interfaces for the widgets that Qt does not describe by itself.
#pragma once

namespace sorvex {

/// Registers accessible interfaces (role, name, press action, reading order) for forms, surfaces, images and clickable
/// labels. Call once, after the application object was created.
void InstallAccessibility();

}  // namespace sorvex
