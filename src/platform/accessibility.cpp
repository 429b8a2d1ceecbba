// SPDX-License-Identifier: MIT
// Sorting controls by position, and composing a surface's name.
#include "platform/accessibility.h"

#include <algorithm>
#include <tuple>

namespace sorvex {

std::vector<Control*> ReadingOrder(const Form& form, const PictureBox* container) {
  std::vector<Control*> order;
  for (Control* control : form.Controls)
    if (control->Container == container) order.push_back(control);
  std::stable_sort(order.begin(), order.end(), [](const Control* a, const Control* b) {
    return std::tie(a->Top, a->Left) < std::tie(b->Top, b->Left);
  });
  return order;
}

std::string SpokenText(const Form& form, const PictureBox& surface) {
  std::string text = surface.AccessibleName;
  for (const Control* control : ReadingOrder(form, &surface)) {
    const auto* label = dynamic_cast<const Label*>(control);
    if (label != nullptr && label->Visible) text += (text.empty() ? "" : " ") + label->Caption;
  }
  return text;
}

}  // namespace sorvex
