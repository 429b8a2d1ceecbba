// SPDX-License-Identifier: MIT
// The page: windows, controls and boxes as elements, and what the player does with them as events. It only shows and
// reports; page.h says what each function is asked for.
const page = (() => {
  const kinds = ['surface', 'button', 'label', 'link', 'image', 'press', 'list', 'line', 'shape'];
  const Events = Object.fromEntries(['moved', 'move', 'press', 'release', 'lose', 'click', 'command', 'select',
    'choose', 'enter', 'escape', 'function', 'accessKey', 'focus', 'close', 'boxClosed']
    .map((name, number) => [name, number]));
  const requests = {nextEvent: 0, openFile: 1, decode: 2, replaceFile: 3};
  const windows = new Map();   // by number, innermost last; boxes among them
  const controls = new Map();  // by number
  const byElement = new WeakMap();
  const queue = [];
  const channel = new MessageChannel();
  const lineHeights = new Map();  // by font
  const addresses = new Map();    // of built-in pictures, by path
  const newContext = (width, height) => new OffscreenCanvas(width, height).getContext('2d', {willReadFrequently: true});
  const measuring = newContext(1, 1);
  const decoding = newContext(512, 512);
  const find = (id) => document.getElementById(id);
  const css = (pixel) => pixel ? '#' + (pixel & 0xFFFFFF).toString(16).padStart(6, '0') : '';
  const lines = (text) => text.split('\n').slice(0, -1);
  let wake = null;      // ends the program's wait for an event
  let yielding = null;  // the wait that ends at the next message of the channel
  let pointerAt = {x: 0, y: 0};
  let wanted = null;  // the theme to choose
  let asked = new URLSearchParams(location.search).get('theme');

  // Events

  function report(kind, window, fields) {
    queue.push({kind, window, control: 0, x: 0, y: 0, detail: 0, shift: 0, text: null, ...fields});
    if (wake) yieldOnce();
  }

  // Ends the wait once the browser has had its turn: it may have to finish with what it just reported.
  function yieldOnce() {
    if (yielding === wake) return;
    yielding = wake;
    channel.port2.postMessage(0);
  }

  function allocated(text) {
    if (text === null) return 0;
    const size = lengthBytesUTF8(text) + 1;
    const place = _malloc(size);
    stringToUTF8(text, place, size);
    return place;
  }

  function takeEvent(result) {
    const event = queue.shift();
    if (!event) return 0;
    const {kind, window, control, x, y, detail, shift, text} = event;
    HEAP32.set([kind, window, control, x, y, detail, shift, allocated(text)], result >> 2);
    return 1;
  }

  function nextEvent(patience, result, answer) {
    if (queue.length || patience < 0) return answer(takeEvent(result));
    let timer;
    wake = () => {
      wake = null;
      clearTimeout(timer);
      answer(takeEvent(result));
    };
    if (patience === 0) yieldOnce();
    else if (patience < 0x7FFFFFFF) timer = setTimeout(wake, patience);
  }
  channel.port1.onmessage = () => {
    if (wake && wake === yielding) wake();
  };

  // Stores bytes in a PageData.
  function give(result, bytes, width = 0, height = 0) {
    if (!bytes) return 0;
    const place = _malloc(Math.max(1, bytes.length));
    HEAPU8.set(bytes, place);
    HEAP32.set([place, bytes.length, width, height], result >> 2);
    return 1;
  }

  const bytesAt = (place, size) => HEAPU8.slice(place, place + size);

  async function decode(bytes, result) {
    try {
      // A mask for transparency in a bitmap's header: the game's bitmaps have none.
      if (bytes[0] === 0x42 && bytes[1] === 0x4D && bytes[14] >= 56) bytes.fill(0, 66, 70);
      const options = {colorSpaceConversion: 'none', premultiplyAlpha: 'none'};
      const image = await createImageBitmap(new Blob([bytes]), options);
      const isSmall = image.width <= 512 && image.height <= 512;
      const context = isSmall ? decoding : newContext(image.width, image.height);
      context.globalCompositeOperation = 'copy';
      context.drawImage(image, 0, 0);
      const {data, width, height} = context.getImageData(0, 0, image.width, image.height);
      return give(result, data, width, height);
    } catch {
      return 0;
    }
  }

  function replaceFile(request, size) {
    const [path, bytes, before, sizeBefore] = HEAP32.subarray(request >> 2, (request >> 2) + 4);
    return files.replace(UTF8ToString(path), bytesAt(bytes, size), sizeBefore < 0 ? null : bytesAt(before, sizeBefore));
  }

  function awaitRequest(request, data, size, result, answer) {
    if (request === requests.nextEvent) return nextEvent(size, result, answer);
    if (request === requests.decode) return decode(bytesAt(data, size), result).then(answer);
    if (request === requests.replaceFile) return replaceFile(data, size).then(answer);
    const file = files.open(UTF8ToString(data));
    if (file instanceof Promise) return file.then((bytes) => answer(give(result, bytes)));
    answer(give(result, file));
  }

  // Windows

  function make(tag, className, parent) {
    const element = document.createElement(tag);
    element.className = className;
    if (parent) parent.append(element);
    return element;
  }

  // What the browser closes by itself counts as closed too.
  function makeDialog(number, className, title, closed, cancelled = closed) {
    const frame = make('dialog', className, document.body);
    frame.tabIndex = -1;
    const bar = make('header', '', frame);
    const heading = make('h2', '', bar);
    heading.textContent = title;
    const close = make('button', 'close', bar);
    close.type = 'button';
    close.ariaLabel = close.title = 'Close';
    close.tabIndex = -1;
    close.textContent = '\u00D7';
    close.onclick = closed;
    frame.oncancel = (event) => {
      event.preventDefault();
      cancelled();
    };
    frame.onclose = () => {
      if (windows.has(number)) closed();
    };
    return {frame, heading};
  }

  const front = () => [...windows.values()].pop();

  function openWindow(number, modal) {
    const window = {number, modal, focused: 0, buttons: 0, width: 0, scale: 1, left: 0, top: 0};
    if (modal) {
      Object.assign(window,
        makeDialog(number, 'window', '', () => report(Events.close, number), () => report(Events.escape, number)));
    } else {
      Object.assign(window, {frame: find('game'), heading: find('caption')});
    }
    window.stage = make('div', 'stage', window.frame);
    window.root = make('div', 'client', window.stage);
    byElement.set(window.root, window);
    windows.set(number, window);
    listen(window);
    if (modal) {
      window.frame.showModal();
      window.frame.focus();
    } else if (asked) {
      choose(asked);
      asked = null;
    }
  }

  function closeWindow(number) {
    const window = windows.get(number);
    if (!window) return;
    windows.delete(number);
    for (const [control, {owner}] of controls) if (owner === window) controls.delete(control);
    if (window.modal) {
      window.frame.close();
      window.frame.remove();
    } else {
      window.stage.remove();
    }
  }

  function setCaption(number, caption) {
    const window = windows.get(number);
    window.heading.textContent = caption;
    if (!window.modal) document.title = caption;
    else window.frame.ariaLabel = caption;
  }

  function setBackground(number, color) { windows.get(number).root.style.backgroundColor = css(color); }

  function setSize(number, width, height) {
    const window = windows.get(number);
    window.width = width;
    Object.assign(window.root.style, {width: width + 'px', height: height + 'px'});
    align(window);
  }

  // Gives each pixel of the form a whole number of the screen's, and the form a whole place there.
  function align(window) {
    if (!window.root) return;
    const ratio = devicePixelRatio;
    const most = Math.floor(document.documentElement.clientWidth * ratio / window.width);
    window.scale = Math.max(1, Math.min(Math.round(ratio), most));
    window.root.style.zoom = window.scale / ratio;
    window.stage.style.padding = '0';
    const {left, top} = window.stage.getBoundingClientRect();
    // Some browsers paint at whole pixels of the page: a place that is whole in both is never far.
    const shift = (place) => {
      for (let whole = Math.ceil(place); whole < place + 8; ++whole)
        if (Math.abs(whole * ratio - Math.round(whole * ratio)) < 1 / 64) return whole - place;
      return (Math.ceil(place * ratio) - place * ratio) / ratio;
    };
    window.stage.style.padding = `${shift(top)}px 0 0 ${shift(left)}px`;
    const origin = originOf(window);
    const x = Math.round(origin.x / window.scale);
    const y = Math.round(origin.y / window.scale);
    if (x !== window.left || y !== window.top) report(Events.moved, window.number, {x, y});
    Object.assign(window, {left: x, top: y});
  }

  // The form's top left corner in the screen's pixels, from that of the page's visible part.
  function originOf(window) {
    const ratio = devicePixelRatio;
    const {left, top} = window.stage.getBoundingClientRect();
    const {paddingLeft, paddingTop} = window.stage.style;
    return {x: Math.round((left + parseFloat(paddingLeft)) * ratio),
      y: Math.round((top + parseFloat(paddingTop)) * ratio)};
  }

  function mark(number, control) {
    for (const button of windows.get(number).root.querySelectorAll('button'))
      button.classList.toggle('default', byElement.get(button).number === control);
  }

  function focused(number) { return windows.get(number).focused; }

  // Controls

  function makeControl(number, kind, window, container, depth, tabIndex) {
    const owner = windows.get(window);
    const name = kinds[kind];
    const tags = {button: 'button', list: 'select'};
    const parent = container ? controls.get(container).element : owner.root;
    const element = make(tags[name] || 'div', name, parent);
    const control = {number, name, element, owner, container: controls.get(container), left: 0, top: 0, frame: 0};
    element.style.zIndex = depth;
    if (tabIndex >= 0) element.tabIndex = tabIndex + 1;
    if (name === 'surface') {
      control.canvas = make('canvas', '', element);
      control.context = control.canvas.getContext('2d', {alpha: false, willReadFrequently: true});
      element.setAttribute('role', tabIndex >= 0 ? 'img' : 'group');
      element.classList.toggle('field', tabIndex >= 0);
    }
    if (name === 'button') element.type = 'button';
    if (name === 'list') listenToList(control);
    const roles = {link: 'link', press: 'button', image: 'img', line: 'presentation', shape: 'presentation'};
    if (roles[name]) element.setAttribute('role', roles[name]);
    controls.set(number, control);
    byElement.set(element, control);
  }

  function remove(number) {
    controls.get(number).element.remove();
    controls.delete(number);
  }

  function place(number, left, top, width, height, visible) {
    const control = controls.get(number);
    const {element, canvas, name} = control;
    if (!control.placed) {
      // Assistive technology reads row by row, each from left to right, whatever is in front.
      const isAfter = ({top: y, left: x}) => y > top || y === top && x > left;
      const after = [...element.parentElement.children].find((each) => {
        const other = byElement.get(each);
        return other?.placed && isAfter(other);
      });
      element.parentElement.insertBefore(element, after || null);
    }
    Object.assign(control, {left, top, placed: true});
    const style = element.style;
    element.hidden = !visible;
    Object.assign(style, {left: left + 'px', top: top + 'px'});
    if (name === 'label' || name === 'link') {
      Object.assign(style, {minWidth: width + 'px', minHeight: height + 'px'});
      style.setProperty('--width', width + 'px');
    } else {
      Object.assign(style, {width: Math.max(1, width) + 'px', height: Math.max(1, height) + 'px'});
    }
    if (canvas && (canvas.width !== width || canvas.height !== height)) Object.assign(canvas, {width, height});
  }

  function pictureAddress(path) {
    if (!addresses.has(path)) addresses.set(path, URL.createObjectURL(new Blob([files.open(path)])));
    return addresses.get(path);
  }

  const setters = [
    function caption({element, name}, text) {
      const [, before, key, after] = name === 'button' && text.match(/^([^&]*)&(.)(.*)$/) || [];
      if (key === undefined) {
        element.textContent = text.replaceAll('\r\n', '\n');
        return;
      }
      const underlined = document.createElement('u');
      underlined.textContent = key;
      element.replaceChildren(before, underlined, after);
      element.dataset.key = key.toLowerCase();
      element.setAttribute('aria-keyshortcuts', 'Alt+' + key);
    },
    function toolTip({element}, text) { element.title = text; },
    function accessibleName({element}, text) {
      if (text) element.ariaLabel = text;
    },
    function entries(control, text) {
      control.element.replaceChildren(...lines(text).map((entry) => new Option(entry)));
      control.element.size = 8;
      const index = wanted === null ? -1 : lines(text).indexOf(wanted);
      wanted = null;
      if (index < 0) return;
      report(Events.select, control.owner.number, {control: control.number, detail: index});
      report(Events.enter, control.owner.number);
    },
    function picture({element}, text) {
      if (!text) return;
      const image = make('img', '', element);
      image.draggable = false;
      image.alt = '';
      image.src = pictureAddress(text);
    },
    function cursor({element}, text) {
      if (text) element.style.cursor = `url(${pictureAddress(text)}), pointer`;
    },
    function commands({number, owner}, text) {
      for (const [detail, line] of lines(text).entries()) {
        const [name, key] = line.split('\t');
        const button = make('button', '', find('commands'));
        button.type = 'button';
        button.textContent = name;
        button.title = key;
        button.setAttribute('aria-keyshortcuts', key);
        button.onclick = () => report(Events.command, owner.number, {control: number, detail});
      }
    },
  ];
  function setText(number, which, text) { setters[which](controls.get(number), text); }

  function setStyle(number, color, background, alignment, wraps, room) {
    const {element} = controls.get(number);
    element.classList.toggle('wraps', wraps !== 0);
    Object.assign(element.style, {color: css(color), backgroundColor: css(background),
      textAlign: ['left', 'center', 'right'][alignment], maxWidth: room ? room + 'px' : ''});
  }

  // Families that are not there are replaced by ones with the same metrics or a similar look.
  function fontOf(family, pixels, weight) {
    const heavy = family === 'Arial Black';
    return `${heavy ? 900 : weight} ${pixels}px "${family}", ${heavy ? 'Inter, ' : ''}Arial, "Liberation Sans", ` +
      'Helvetica, sans-serif';
  }

  function setFont(number, family, pixels, weight, underlined) {
    const {style} = controls.get(number).element;
    style.font = fontOf(family, pixels, weight);
    style.textDecoration = underlined ? 'underline' : '';
  }

  // As the page lays it out, which is dear.
  function heightOf(text, font, width) {
    const measured = find('measure');
    measured.style.font = font;
    measured.style.width = width + 'px';
    measured.textContent = text;
    return measured.getBoundingClientRect().height;
  }

  function measure(text, family, pixels, weight, wrapWidth) {
    const font = fontOf(family, pixels, weight);
    text = text.replaceAll('\r\n', '\n');
    let [width, height] = [wrapWidth, 0];
    if (wrapWidth) {
      height = heightOf(text, font, wrapWidth);
    } else {
      measuring.font = font;
      const each = text.split('\n');
      width = Math.max(...each.map((line) => measuring.measureText(line).width));
      if (!lineHeights.has(font)) lineHeights.set(font, heightOf('X', font, 100));
      height = each.length * lineHeights.get(font);
    }
    return Math.ceil(Math.min(width, 0x7FFF)) << 16 | Math.ceil(Math.min(height, 0x7FFF));
  }

  function setFrame(number, width, background) {
    const control = Object.assign(controls.get(number), {frame: width});
    const {context, canvas} = control;
    const edges = [[], ['#000000', '#000000'], ['#808080', '#FFFFFF', '#404040', '#DFDFDF']][width];
    context.fillStyle = css(background);
    context.fillRect(0, 0, canvas.width, canvas.height);
    for (let i = 0; i < width; ++i) {
      const [w, h] = [canvas.width - 2 * i, canvas.height - 2 * i];
      const [upper, lower] = edges.slice(2 * i);
      for (const [color, ...bounds] of [[upper, i, i, w - 1, 1], [upper, i, i, 1, h - 1],
        [lower, i, i + h - 1, w, 1], [lower, i + w - 1, i, 1, h]]) {
        context.fillStyle = color;
        context.fillRect(...bounds);
      }
    }
  }

  function paint(number, pixels, left, top, width, height) {
    const {context, frame} = controls.get(number);
    const seen = new ImageData(new Uint8ClampedArray(HEAPU8.buffer, pixels, width * height * 4), width, height);
    context.putImageData(seen, frame + left, frame + top);
  }

  function select(number, entry) { controls.get(number).element.selectedIndex = entry; }
  function focus(number) { controls.get(number).element.focus(); }

  function listenToList({element, number, owner}) {
    const selected = (kind) => report(kind, owner.number, {control: number, detail: element.selectedIndex});
    element.onchange = () => selected(Events.select);
    element.ondblclick = () => {
      if (element.selectedIndex >= 0) selected(Events.choose);
    };
  }

  // Input

  const shiftOf = (event) => (event.shiftKey ? 1 : 0) | (event.ctrlKey ? 2 : 0) | (event.altKey ? 4 : 0);

  function listen(window) {
    const {root, number} = window;
    // Where the browser has them, raw updates come before those that it holds back for the next frame.
    const moves = 'onpointerrawupdate' in root ? 'pointerrawupdate' : 'pointermove';
    for (const type of new Set(['pointerdown', 'pointerup', 'pointermove', moves]))
      root.addEventListener(type, (event) => handlePointer(window, event, type === moves));
    for (const type of ['pointercancel', 'lostpointercapture']) root.addEventListener(type, () => lose(window));
    root.addEventListener('contextmenu', (event) => event.preventDefault());
    root.addEventListener('focusin', (event) => {
      window.focused = byElement.get(event.target)?.number || 0;
      report(Events.focus, number);
    });
    root.addEventListener('click', (event) => {
      const button = event.target.closest('button');
      // The pointer's clicks on images and links are told by its presses; others come from assistive technology.
      const pressed = button || event.detail === 0 && event.target.closest('.press, .link');
      if (pressed) report(Events.click, number, {control: byElement.get(pressed).number});
    });
  }

  function lose(window) {
    if (window.buttons) report(Events.lose, window.number);
    window.buttons = 0;
  }

  function handlePointer(window, event, isMove) {
    const {root, number} = window;
    if (!event.isPrimary || event.target.closest('button, select')) return;
    const element = event.target.closest('.surface, .client');
    const area = element === root ? null : byElement.get(element);
    const corner = originOf(window);
    const origin = {x: 0, y: 0};
    for (let each = area; each; each = each.container) {
      origin.x += each.left + (each === area ? each.frame : 0);
      origin.y += each.top + (each === area ? each.frame : 0);
    }
    const shift = shiftOf(event);
    const at = ({clientX, clientY}) => {
      const x = Math.floor((Math.floor(clientX * devicePixelRatio + 1 / 64) - corner.x) / window.scale);
      const y = Math.floor((Math.floor(clientY * devicePixelRatio + 1 / 64) - corner.y) / window.scale);
      pointerAt = {x: x + window.left, y: y + window.top};
      return {control: area ? area.number : 0, x: x - origin.x, y: y - origin.y, shift};
    };
    const passed = isMove && event.getCoalescedEvents ? event.getCoalescedEvents() : [];
    if (isMove) for (const each of passed.length ? passed : [event]) report(Events.move, number, at(each));
    const changed = (window.buttons ^ event.buttons) & 7;
    if (!changed) return;
    window.buttons = event.buttons & 7;
    // A finger or a pen comes from nowhere: what it presses must be current first.
    if (event.pointerType !== 'mouse' && window.buttons) report(Events.move, number, at(event));
    if (event.type === 'pointerdown') element.setPointerCapture(event.pointerId);
    for (const detail of [1, 2, 4].filter((button) => changed & button))
      report(window.buttons & detail ? Events.press : Events.release, number, {...at(event), detail});
  }

  function handleKey(event) {
    const window = front();
    if (!window?.root || event.isComposing) return;
    // Enter is for the page's own buttons while they have the focus.
    const isInside = event.target === document.body || window.frame.contains(event.target);
    const functionKey = /^F([1-9])$/.exec(event.key);
    const known = functionKey && find('commands').querySelector(`[aria-keyshortcuts="${event.key}"]`);
    const letter = /^[a-z]$/i.test(event.key) ? event.key.toLowerCase() : event.code.replace(/^Key/, '').toLowerCase();
    if (event.key === 'Enter' && isInside && event.target.className !== 'close') take(Events.enter);
    else if (event.key === 'Escape' && isInside) take(Events.escape);
    else if (known) take(Events.function, {detail: Number(functionKey[1])});
    else if (event.altKey && !event.ctrlKey && window.root.querySelector(`[data-key="${CSS.escape(letter)}"]`))
      take(Events.accessKey, {text: letter});
    function take(kind, fields) {
      event.preventDefault();
      report(kind, window.number, fields);
    }
  }

  // Boxes

  function openBox(number, text, title, icon, mostTyped) {
    const answer = (typed) => report(Events.boxClosed, number, {text: typed});
    const {frame} = makeDialog(number, 'box', title, () => answer(null));
    windows.set(number, {number, modal: true, frame});
    const body = make('div', 'message ' + ['', 'critical', 'exclamation', 'information'][icon], frame);
    const message = make(mostTyped ? 'label' : 'p', '', body);
    message.id = 'text' + number;
    message.textContent = text.replaceAll('\r\n', '\n');
    frame.ariaLabel = title;
    frame.setAttribute('role', mostTyped ? 'dialog' : 'alertdialog');
    frame.setAttribute('aria-describedby', message.id);
    const field = mostTyped ? make('input', '', body) : null;
    if (field) {
      Object.assign(field, {type: 'text', maxLength: mostTyped, autocomplete: 'off', id: 'field' + number});
      message.htmlFor = field.id;
      field.onkeydown = (event) => {
        if (event.key === 'Enter' && !event.isComposing) answer(field.value);
      };
    }
    const row = make('footer', '', frame);
    for (const name of field ? ['OK', 'Cancel'] : ['OK']) {
      const button = make('button', '', row);
      button.type = 'button';
      button.textContent = name;
      button.onclick = () => answer(name === 'OK' ? field ? field.value : '' : null);
    }
    frame.showModal();
    (field || row.firstChild).focus();
  }

  function openAddress(address) {
    if (address.startsWith('mailto:')) location.href = address;
    else open(address, '_blank', 'noopener');
  }

  // Chooses a theme as the player would, unless something else is open.
  function choose(theme) {
    const window = front();
    if (!window || window.modal) return;
    wanted = theme;
    report(Events.function, window.number, {detail: 3});
  }

  function say(text) { find('status').textContent = text; }

  function start() {
    document.addEventListener('keydown', handleKey);
    addEventListener('blur', () => windows.forEach(lose));
    addEventListener('resize', () => windows.forEach(align));
  }

  return {await: awaitRequest, allocated, openWindow, closeWindow, setCaption, setBackground, setSize, mark, focused,
    make: makeControl, remove, place, setText, setStyle, setFont, setFrame, paint, select, focus, measure, openBox,
    pointer: () => pointerAt.x << 16 | pointerAt.y & 0xFFFF, openAddress, choose, say, start};
})();
