// SPDX-License-Identifier: MIT
// Roles and press actions of forms, images and links.
#include "platform/qt/accessibility.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QMetaObject>

#include "platform/qt/control_widgets.h"
#include "platform/qt/form_window.h"
#include "platform/qt/text.h"

namespace sorvex {
namespace {

/// An image or label that answers to a click.
class Pressable final : public QAccessibleWidget {
 public:
  Pressable(ControlWidget& control, QAccessible::Role role, const std::string& name)
      : QAccessibleWidget(&control.Widget(), role, ToQt(name)), control_(control) {}

  QStringList actionNames() const override { return {pressAction()}; }
  void doAction(const QString& action) override {
    // Not at once: the handler may open a box, and the caller waits for an answer.
    if (action == pressAction())
      QMetaObject::invokeMethod(widget(), [&control = control_] { control.Click(); }, Qt::QueuedConnection);
  }

 private:
  ControlWidget& control_;
};

QAccessibleInterface* MakeAccessible(const QString& /*className*/, QObject* object) {
  if (auto* window = dynamic_cast<FormWindow*>(object))
    return new QAccessibleWidget(window, window->isModal() ? QAccessible::Dialog : QAccessible::Window);
  auto* control = dynamic_cast<ControlWidget*>(object);
  if (control == nullptr) return nullptr;
  if (const auto* image = dynamic_cast<const Image*>(&control->Subject()))
    return new Pressable(*control, QAccessible::Button, image->ToolTipText);
  const auto* label = dynamic_cast<const Label*>(&control->Subject());
  if (label != nullptr && label->Click) return new Pressable(*control, QAccessible::Link, label->Caption);
  return nullptr;
}

}  // namespace

void InstallAccessibility() { QAccessible::installFactory(&MakeAccessible); }

}  // namespace sorvex
