// SPDX-License-Identifier: MIT
// Windows, event delivery, modal waits and services.
#include "platform/qt/qt_desktop.h"

#include <QAbstractEventDispatcher>
#include <QCursor>
#include <QDate>
#include <QDesktopServices>
#include <QDialog>
#include <QEventLoop>
#include <QFile>
#include <QFontMetrics>
#include <QLocale>
#include <QPixmapCache>
#include <QProxyStyle>
#include <QRegion>
#include <QThreadPool>
#include <QUrl>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <utility>

#include "base/finally.h"
#include "platform/posix/write_whole_file.h"
#include "platform/qt/accessibility.h"
#include "platform/qt/boxes.h"
#include "platform/qt/built_ins.h"
#include "platform/qt/form_window.h"
#include "platform/qt/images.h"
#include "platform/qt/stored_registry.h"
#include "platform/qt/text.h"
#include "platform/version.h"

namespace sorvex {
namespace {

/// Qt's own style without icons on the buttons of boxes.
class Look final : public QProxyStyle {
 public:
  Look() : QProxyStyle(QStringLiteral("Fusion")) {}

  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* result) const override {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
    return QProxyStyle::styleHint(hint, option, widget, result);
  }
};

// Selects the same style on every desktop, in the desktop's light or dark colors.
void ChooseLook() {
  auto* style = new Look;
  QApplication::setStyle(style);
  QApplication::setPalette(style->standardPalette());
  QApplication::setFont(ToQt(Font{"Arial", 9.75F, 400, false}));
}

// Qt enumerates the system's fonts when the first one is used; do that on another thread while the theme is read.
void FindFontsMeanwhile() {
  QThreadPool::globalInstance()->start([font = QApplication::font()] { QFontMetrics(font).height(); });
}

}  // namespace

struct QtDesktop::ShownForm {
  Form& form;
  FormWindow window;
  QEventLoop* loop = nullptr;
};

/// Handles the session manager's request to quit.
class QtDesktop::SessionEnd final : public QObject {
 public:
  explicit SessionEnd(QtDesktop& desktop) : desktop_(desktop) { qApp->installEventFilter(this); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched != qApp || event->type() != QEvent::Quit) return false;
    desktop_.EndSession();
    return true;
  }

 private:
  QtDesktop& desktop_;
};

QtDesktop::QtDesktop(int& argc, char** argv)
    : runner_([this] { Sync(); }),
      application_(argc, argv, runner_),
      registry_(MakeStoredRegistry()),
      sessionEnd_(std::make_unique<SessionEnd>(*this)),
      signals_([this] { EndSession(); }) {
  // Names the desktop entry, by which Wayland finds the icon; X11 goes by the window class, which is the program's
  // name.
  QGuiApplication::setDesktopFileName(QStringLiteral("sorvex"));
  patience_.setSingleShot(true);
  patience_.setTimerType(Qt::PreciseTimer);
  // Deliver every queued move.
  QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
  QCoreApplication::setAttribute(Qt::AA_CompressTabletEvents, false);
  // A message box may be shown and closed while there is no other window.
  QApplication::setQuitOnLastWindowClosed(false);
  ChooseLook();
  // Qt's style would keep pictures of every box's buttons, up to 10 MiB, although no later box finds them: their keys
  // name the box's own palette. It also keeps the keys (Qt 6.4), without a limit.
  QPixmapCache::setCacheLimit(0);
  FindFontsMeanwhile();
  InstallAccessibility();
}

// The font enumeration must finish while the application object exists.
QtDesktop::~QtDesktop() { QThreadPool::globalInstance()->waitForDone(); }

QtDesktop::ShownForm* QtDesktop::Find(const Form* form) const {
  const auto found = std::ranges::find_if(shown_, [form](const auto& shown) { return &shown->form == form; });
  return found == shown_.end() ? nullptr : found->get();
}

void QtDesktop::Remove(const Form& form) {
  std::erase_if(shown_, [&form](const auto& shown) { return &shown->form == &form; });
}

void QtDesktop::Show(Form& form, Form* owner) {
  ShownForm* shown = Find(&form);
  if (shown == nullptr) {
    const ShownForm* owning = Find(owner);
    FormWindow* parent = owning == nullptr ? nullptr : const_cast<FormWindow*>(&owning->window);
    auto context = std::make_unique<FormContext>(FormContext{form, *this, runner_});
    shown = shown_.emplace_back(new ShownForm{form, {std::move(context), parent}}).get();
  }
  QEventLoop loop;
  shown->loop = &loop;
  const Finally close([&] {
    shown->loop = nullptr;
    // After an exception the main form stays loaded: keep its window, so that the error is shown above it.
    if (owner != nullptr || !form.Loaded || runner_.Ended()) Remove(form);
  });
  Wait(loop, [shown] { shown->window.Open(); });
}

void QtDesktop::DeliverEvents(int patience) {
  runner_.Serve([&] {
    Sync();
    for (std::size_t i = 0; i < shown_.size(); ++i) shown_[i]->window.Controller().RunTimers();
    QAbstractEventDispatcher& events = *QAbstractEventDispatcher::instance();
    if (events.processEvents(QEventLoop::AllEvents) || patience == 0 || runner_.Leaving()) return;
    patience_.start(patience);
    events.processEvents(QEventLoop::WaitForMoreEvents);
    patience_.stop();
    QCoreApplication::processEvents();
  });
}

void QtDesktop::Refresh(PictureBox& surface, std::span<const Rectangle> changed) {
  Sync();
  for (const auto& shown : shown_) {
    QWidget* widget = shown->window.WidgetOf(surface);
    if (widget == nullptr) continue;
    // With fractional scaling Qt does not repaint device pixels at a region's edges that belong to it only in part.
    const double scale = widget->devicePixelRatioF();
    const int margin = scale == std::floor(scale) ? 0 : 1;
    const int corner = FrameWidth(surface.BorderStyle) - margin;
    QRegion region;
    for (const Rectangle& box : changed)
      region += QRect(box.left + corner, box.top + corner, box.Width() + 2 * margin, box.Height() + 2 * margin);
    widget->repaint(region);
  }
}

void QtDesktop::ShowMessage(const std::string& text, const std::string& title, BoxIcon icon) {
  MessageDialog box(text, title, icon, ActiveWindow());
  RunDialog(box);
}

std::string QtDesktop::InputBox(const std::string& prompt, const std::string& title) {
  InputDialog box(prompt, title, ActiveWindow());
  RunDialog(box);
  return box.Answer();
}

void QtDesktop::Sync() {
  for (const auto& shown : shown_) {
    shown->window.Controller().Sync();
    if (!shown->form.Loaded && shown->loop != nullptr) shown->loop->quit();
  }
}

void QtDesktop::Wait(QEventLoop& loop, const std::function<void()>& begin) {
  // An exception from losing the pointer is rethrown after the box, which may report an earlier error.
  const std::exception_ptr late = runner_.Attempt([this] {
    for (std::size_t i = 0; i < shown_.size(); ++i) shown_[i]->window.LosePointer();
  });
  const auto wait = [&] {
    Sync();
    if (!runner_.Leaving()) begin();
    if (!runner_.Leaving()) loop.exec();
  };
  runner_.Serve(wait, [&loop] { loop.quit(); });
  if (late) std::rethrow_exception(late);
}

void QtDesktop::RunDialog(QDialog& dialog) {
  QEventLoop loop;
  QObject::connect(&dialog, &QDialog::finished, &loop, &QEventLoop::quit);
  Wait(loop, [&dialog] { dialog.show(); });
}

void QtDesktop::EndSession() {
  if (shown_.empty())
    runner_.Run([] { throw ProgramEnded{}; });
  else
    shown_.front()->window.Controller().Close();
}

QWidget* QtDesktop::ActiveWindow() const { return shown_.empty() ? nullptr : &shown_.back()->window; }

Picture QtDesktop::BuiltInPicture(BuiltIn which) { return MakePicture(CopyOf(BuiltInImage(which, QSize()))); }

Size QtDesktop::MeasureText(const Font& font, const std::string& text, int wrapWidth) {
  return TextSize(font, text, wrapWidth);
}

Pixel QtDesktop::ResolveColor(Color color) { return Resolve(color); }

TwipRatio QtDesktop::TwipsPerPixel() {
  // Qt scales logical pixels to the screen's resolution, so that one is always 1/96 inch.
  return {15, 15};
}

Long QtDesktop::TickCount() {
  const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
  const auto milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(sinceStart).count();
  return static_cast<Long>(static_cast<std::uint32_t>(milliseconds));
}

ScreenPoint QtDesktop::PointerPosition() {
  const QPoint place = QCursor::pos();
  return {place.x(), place.y()};
}

void QtDesktop::PlayWave(const std::string& path) { sounds_.Play(path); }

void QtDesktop::PrepareWaves(std::span<const std::string> paths) { sounds_.Prepare(paths); }

void QtDesktop::OpenAddress(const std::string& address) { QDesktopServices::openUrl(QUrl(ToQt(address))); }

std::string QtDesktop::ShortDate() {
  return FromQt(QLocale::system().toString(QDate::currentDate(), QLocale::ShortFormat));
}

std::string QtDesktop::ProgramFolder() {
  // Not from Qt, which cannot represent a path that is not valid UTF-8.
  std::error_code unknown;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", unknown);
  if (!unknown) return program.parent_path().string();
  return QFile::encodeName(QCoreApplication::applicationDirPath()).toStdString();
}

VersionInfo QtDesktop::Version() {
  return {version::kTitle,    version::kMajor,    version::kMinor,
          version::kRevision, version::kComments, version::kLegalCopyright};
}

void QtDesktop::UpdateFile(const std::string& path, const FileContent& content) { sorvex::UpdateFile(path, content); }

std::unique_ptr<Desktop> MakeDesktop(int& argc, char** argv) { return std::make_unique<QtDesktop>(argc, argv); }

}  // namespace sorvex
