// SPDX-License-Identifier: MIT
// Roles and press actions of forms, images and links.
#include "platform/qt/accessibility.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QMetaObject>
#include <algorithm>
#include <vector>

#include "platform/qt/control_widgets.h"
#include "platform/qt/form_window.h"
#include "platform/qt/text.h"

namespace sorvex {
namespace {

QString KeyOf(const Command& command) { return QStringLiteral("F%1").arg(command.FunctionKey); }

/// An image or label that answers to a click. An image's first command is the click's, the others are actions of their
/// own.
class Pressable final : public QAccessibleWidget {
 public:
  Pressable(ControlWidget& control, QAccessible::Role role, const std::string& name)
      : QAccessibleWidget(&control.Widget(), role, ToQt(name)), control_(control) {
    if (const auto* image = dynamic_cast<const Image*>(&control.Subject())) commands_ = image->Commands;
  }

  QStringList actionNames() const override {
    QStringList names{pressAction()};
    for (std::size_t i = 1; i < commands_.size(); ++i) names += ToQt(commands_[i].Name);
    return names;
  }

  QStringList keyBindingsForAction(const QString& action) const override {
    const Command* command = CommandOf(action);
    return command == nullptr ? QStringList() : QStringList{KeyOf(*command)};
  }

  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Accelerator && !commands_.empty() ? KeyOf(commands_.front())
                                                                  : QAccessibleWidget::text(kind);
  }

  void doAction(const QString& action) override {
    // Not at once: the handler may open a box, and the caller waits for an answer.
    if (action == pressAction())
      QMetaObject::invokeMethod(
          widget(), [&control = control_] { control.Click(); }, Qt::QueuedConnection);
    else if (const Command* command = CommandOf(action))
      QMetaObject::invokeMethod(
          widget(), [&control = control_, command = *command] { control.Do(command); }, Qt::QueuedConnection);
  }

 private:
  const Command* CommandOf(const QString& action) const {
    if (action == pressAction()) return commands_.empty() ? nullptr : &commands_.front();
    const auto found = std::ranges::find(commands_, FromQt(action), &Command::Name);
    return found == commands_.end() ? nullptr : &*found;
  }

  ControlWidget& control_;
  std::vector<Command> commands_;
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
