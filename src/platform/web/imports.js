// SPDX-License-Identifier: MIT
// What page.h declares, as the compiler's linker takes it: each function calls the page's script.
mergeInto(LibraryManager.library, {
  PageAwait__deps: ['$Asyncify'],
  PageAwait: function(request, data, size, result) {
    return Asyncify.handleSleep((answer) => page.await(request, data, size, result, answer));
  },
  PageOpenWindow: function(window, modal) { page.openWindow(window, modal); },
  PageCloseWindow: function(window) { page.closeWindow(window); },
  PageSetCaption: function(window, caption) { page.setCaption(window, UTF8ToString(caption)); },
  PageSetBackground: function(window, color) { page.setBackground(window, color); },
  PageSetSize: function(window, width, height) { page.setSize(window, width, height); },
  PageMark: function(window, control) { page.mark(window, control); },
  PageFocused: function(window) { return page.focused(window); },
  PageMake: function(control, kind, window, container, depth, tabIndex) {
    page.make(control, kind, window, container, depth, tabIndex);
  },
  PageRemove: function(control) { page.remove(control); },
  PagePlace: function(control, left, top, width, height, visible) {
    page.place(control, left, top, width, height, visible);
  },
  PageSetText: function(control, which, text) { page.setText(control, which, UTF8ToString(text)); },
  PageSetStyle: function(control, color, background, alignment, wraps, room) {
    page.setStyle(control, color, background, alignment, wraps, room);
  },
  PageSetFont: function(control, family, pixels, weight, underlined) {
    page.setFont(control, UTF8ToString(family), pixels, weight, underlined);
  },
  PageSetFrame: function(control, width, background) { page.setFrame(control, width, background); },
  PagePaint: function(control, pixels, left, top, width, height) {
    page.paint(control, pixels, left, top, width, height);
  },
  PageSelect: function(control, entry) { page.select(control, entry); },
  PageFocus: function(control) { page.focus(control); },
  PageMeasure: function(text, family, pixels, weight, wrapWidth) {
    return page.measure(UTF8ToString(text), UTF8ToString(family), pixels, weight, wrapWidth);
  },
  PageOpenBox: function(box, text, title, icon, mostTyped) {
    page.openBox(box, UTF8ToString(text), UTF8ToString(title), icon, mostTyped);
  },
  PageCloseBox: function(box) { page.closeWindow(box); },
  PagePointer: function() { return page.pointer(); },
  PagePlayWave: function(path) { sounds.play(UTF8ToString(path)); },
  PagePrepareWaves: function(paths) { sounds.prepare(UTF8ToString(paths).split('\n').slice(0, -1)); },
  PageOpenAddress: function(address) { page.openAddress(UTF8ToString(address)); },
  PageShortDate: function() { return page.allocated(new Date().toLocaleDateString(undefined, {dateStyle: 'short'})); },
});
