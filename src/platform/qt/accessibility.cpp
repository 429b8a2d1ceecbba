// SPDX-License-Identifier: MIT
// Roles, names and press actions of forms, images and links, and the reading order of their controls.
#include "platform/qt/accessibility.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QMetaObject>
#include <algorithm>
#include <vector>

#include "platform/accessibility.h"
#include "platform/qt/control_widgets.h"
#include "platform/qt/form_window.h"
#include "platform/qt/text.h"

namespace sorvex {
namespace {

QString KeyOf(const Command& command) { return QStringLiteral("F%1").arg(command.FunctionKey); }

/// A clickable image or label. An image's first command is its press action, the others are additional actions.
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
    // Queued, because the handler may open a modal box while the caller waits for a reply.
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

/// A form or surface, whose children are listed in reading order, not in stacking order.
class Readable final : public QAccessibleWidget {
 public:
  Readable(FormWindow& window, QWidget& widget, const PictureBox* surface, QAccessible::Role role)
      : QAccessibleWidget(&widget, role), window_(window), surface_(surface) {}

  int childCount() const override { return static_cast<int>(Children().size()); }
  QAccessibleInterface* child(int index) const override {
    const std::vector<QWidget*> children = Children();
    const bool exists = index >= 0 && index < static_cast<int>(children.size());
    return exists ? QAccessible::queryAccessibleInterface(children[static_cast<std::size_t>(index)]) : nullptr;
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    const std::vector<QWidget*> children = Children();
    const auto found = std::ranges::find(children, child->object());
    return found == children.end() ? -1 : static_cast<int>(found - children.begin());
  }

 private:
  std::vector<QWidget*> Children() const {
    std::vector<QWidget*> children;
    for (const Control* control : ReadingOrder(window_.Controller().ShownForm(), surface_))
      if (QWidget* widget = window_.WidgetOf(*control)) children.push_back(widget);
    return children;
  }

  FormWindow& window_;
  const PictureBox* surface_;
};

QAccessibleInterface* MakeAccessible(const QString& /*className*/, QObject* object) {
  if (auto* window = dynamic_cast<FormWindow*>(object))
    return new Readable(*window, *window, nullptr, window->isModal() ? QAccessible::Dialog : QAccessible::Window);
  auto* control = dynamic_cast<ControlWidget*>(object);
  if (control == nullptr) return nullptr;
  if (const auto* surface = dynamic_cast<const PictureBox*>(&control->Subject()))
    return new Readable(dynamic_cast<FormWindow&>(*control->Widget().window()), control->Widget(), surface,
                        surface->TabIndex >= 0 ? QAccessible::Canvas : QAccessible::Pane);
  if (const auto* image = dynamic_cast<const Image*>(&control->Subject()))
    return new Pressable(*control,
                         image->Click || !image->Commands.empty() ? QAccessible::Button : QAccessible::Graphic,
                         image->AccessibleName.empty() ? image->ToolTipText : image->AccessibleName);
  const auto* label = dynamic_cast<const Label*>(&control->Subject());
  if (label != nullptr && label->Click) return new Pressable(*control, QAccessible::Link, label->Caption);
  return nullptr;
}

}  // namespace

void InstallAccessibility() { QAccessible::installFactory(&MakeAccessible); }

}  // namespace sorvex
