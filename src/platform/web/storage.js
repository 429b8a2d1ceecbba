// SPDX-License-Identifier: MIT
// The themes' files: those that the site has, one archive for each theme, and those that the player dropped on the page
// and the best times, which the browser keeps. The program's own file system holds only the names.
const files = (() => {
  const root = '/themes/';
  const mostFiles = 1000;
  const mostBytes = 128 << 20;
  const longestText = 64 << 10;
  const outcomes = {done: 0, changed: 1, full: 2, refused: 3};
  const kept = new Set();      // the keys of the browser's store
  const fetched = new Map();   // the archives of the site by theme, at most two: promises, then maps
  let onSite = [];
  let current = 'Theme1';  // the theme whose best times were read last

  const timesFile = (name) => name.toLowerCase() === 'highscores.ini';
  const same = (a, b) => a === b || a && b && a.length === b.length && a.every((byte, i) => byte === b[i]);

  // The browser's store

  const database = new Promise((resolve) => {
    try {
      const request = indexedDB.open('sorvex', 1);
      request.onupgradeneeded = () => request.result.createObjectStore('files');
      request.onsuccess = () => resolve(request.result);
      request.onerror = request.onblocked = () => resolve(null);
    } catch {
      resolve(null);
    }
  });

  // Runs `work` on the store in one transaction, and returns what it then leaves in its argument, or how that failed.
  async function transact(mode, work) {
    const opened = await database;
    if (!opened) return {outcome: outcomes.refused};
    return new Promise((resolve) => {
      const state = {outcome: outcomes.done};
      try {
        const transaction = opened.transaction('files', mode, {durability: 'strict'});
        transaction.oncomplete = () => resolve(state);
        transaction.onabort = () => resolve({
          outcome: transaction.error?.name === 'QuotaExceededError' ? outcomes.full : outcomes.refused});
        work(transaction.objectStore('files'), state);
      } catch {
        resolve({outcome: outcomes.refused});
      }
    });
  }

  async function keptFile(key) {
    const {value} = await transact('readonly', (store, state) => {
      store.get(key).onsuccess = ({target}) => { state.value = target.result; };
    });
    return value || null;
  }

  // Archives

  async function inflate(bytes, size) {
    const inflated = new Uint8Array(size);
    let length = 0;
    for await (const piece of pieces(new Blob([bytes]).stream().pipeThrough(new DecompressionStream('deflate-raw')))) {
      if (length + piece.length > size) throw new Error('larger than declared');
      inflated.set(piece, length);
      length += piece.length;
    }
    if (length !== size) throw new Error('smaller than declared');
    return inflated;
  }

  async function* pieces(stream) {
    const reader = stream.getReader();
    for (let next = await reader.read(); !next.done; next = await reader.read()) yield next.value;
  }

  // The files of a zip archive by their paths, unpacked when they are asked for.
  function listArchive(bytes) {
    const view = new DataView(bytes.buffer, bytes.byteOffset, bytes.byteLength);
    let end = bytes.length - 22;
    while (end >= 0 && view.getUint32(end, true) !== 0x06054B50) --end;
    if (end < 0) throw new Error('not a zip archive');
    const listed = new Map();
    let at = view.getUint32(end + 16, true);
    for (let left = view.getUint16(end + 10, true); left > 0; --left) {
      if (view.getUint32(at, true) !== 0x02014B50) throw new Error('a broken zip archive');
      const [method, packed, size] = [view.getUint16(at + 10, true), view.getUint32(at + 20, true),
        view.getUint32(at + 24, true)];
      const nameLength = view.getUint16(at + 28, true);
      const name = new TextDecoder().decode(bytes.subarray(at + 46, at + 46 + nameLength));
      const header = view.getUint32(at + 42, true);
      listed.set(name, {size, read: async () => {
        const start = header + 30 + view.getUint16(header + 26, true) + view.getUint16(header + 28, true);
        const content = bytes.subarray(start, start + packed);
        if (method === 0) return content.slice();
        if (method !== 8) throw new Error('packed in an unknown way');
        return inflate(content, size);
      }});
      at += 46 + nameLength + view.getUint16(at + 30, true) + view.getUint16(at + 32, true);
    }
    return listed;
  }

  async function fetchTheme(theme) {
    const content = new Map();
    try {
      const response = await fetch(`themes/${encodeURIComponent(theme)}.zip`);
      if (!response.ok) return content;
      const listed = listArchive(new Uint8Array(await response.arrayBuffer()));
      await Promise.all([...listed].filter(([path]) => !path.endsWith('/')).map(async ([path, file]) =>
        content.set(path.split('/').pop(), await file.read())));
    } catch (error) {
      console.warn(error);
    }
    return content;
  }

  // A map of the theme's files, or a promise of one.
  function siteTheme(theme) {
    if (!onSite.includes(theme)) return new Map();
    if (!fetched.has(theme)) {
      if (fetched.size === 2) fetched.delete(fetched.keys().next().value);
      fetched.set(theme, fetchTheme(theme).then((content) => {
        // Nothing is kept of a fetch that failed, so that the next one may succeed.
        if (content.size) fetched.set(theme, content);
        else fetched.delete(theme);
        return content;
      }));
    }
    return fetched.get(theme);
  }

  // What the program asks for

  // The file's bytes, null if there is none; a promise of them if they are not at hand.
  function open(path) {
    if (!path.startsWith(root)) {
      try {
        return FS.readFile(path);
      } catch {
        return null;
      }
    }
    const key = path.slice(root.length);
    const [theme, name] = key.split('/');
    if (!name) return null;
    const original = () => {
      const content = siteTheme(theme);
      return content instanceof Map ? content.get(name) || null : content.then((map) => map.get(name) || null);
    };
    if (timesFile(name)) current = theme;
    if (!timesFile(name) && !kept.has(key)) return original();
    return keptFile(key).then((bytes) => bytes || original());
  }

  function addName(key) {
    const [theme, name] = key.split('/');
    kept.add(key);
    FS.mkdirTree(root + theme);
    FS.writeFile(root + theme + '/' + name, '');
  }

  // Stores the file unless its content is another than `before`, which another tab may have seen to.
  async function replace(path, bytes, before) {
    const key = path.slice(root.length);
    const [theme, name] = key.split('/');
    const original = (await siteTheme(theme)).get(name) || null;
    const {outcome} = await transact('readwrite', (store, state) => {
      store.get(key).onsuccess = ({target}) => {
        if (same(target.result || original, before)) store.put(bytes, key);
        else state.outcome = outcomes.changed;
      };
    });
    if (outcome === outcomes.done) addName(key);
    return outcome;
  }

  async function start() {
    FS.mkdirTree(root);
    const list = fetch('themes/themes.txt').then((response) => response.ok ? response.text() : '', () => '');
    const keys = transact('readonly', (store, state) => {
      store.getAllKeys().onsuccess = ({target}) => { state.keys = target.result; };
    });
    onSite = (await list).split('\n').filter((name) => name);
    siteTheme(current);
    for (const theme of onSite) FS.mkdirTree(root + theme);
    for (const key of (await keys).keys || []) addName(key);
  }

  // What the player brings

  // The themes among files by their paths: each folder that holds a Theme.ini, by its name. Nothing else of a path
  // counts, so that no name leads anywhere.
  function themesIn(listed, nameOfAll) {
    const themes = new Map();
    for (const path of listed.keys()) {
      const parts = path.split(/[/\\]/);
      if (parts.pop().toLowerCase() !== 'theme.ini') continue;
      const content = new Map();
      for (const [other, file] of listed) {
        const otherParts = other.split(/[/\\]/);
        const name = otherParts.pop();
        if (name && otherParts.join('/') === parts.join('/')) content.set(name, file);
      }
      themes.set(parts.pop() || nameOfAll, content);
    }
    return themes;
  }

  // Stores a theme in place of one with its name; a table of best times that is kept already belongs to the player and
  // stays.
  async function add(theme, listed) {
    for (const name of [theme, ...listed.keys()])
      if (!name || name.length > 200 || /^\.\.?$|[/\\\x00-\x1F]/.test(name))
        throw new Error('a name that cannot be kept');
    const sizes = [...listed.values()].reduce((sum, {size}) => sum + size, 0);
    if (listed.size > mostFiles || sizes > mostBytes) throw new Error('too large');
    const content = [];
    for (const [name, file] of listed) content.push([`${theme}/${name}`, await file.read()]);
    const before = [...kept].filter((key) => key.startsWith(theme + '/') && !timesFile(key.split('/')[1]));
    const {outcome} = await transact('readwrite', (store) => {
      for (const key of before) store.delete(key);
      for (const [key, bytes] of content) if (!kept.has(key) || before.includes(key)) store.put(bytes, key);
    });
    if (outcome === outcomes.full) throw new Error('no room is left in the browser');
    if (outcome !== outcomes.done) throw new Error('the browser keeps nothing');
    for (const key of before) {
      kept.delete(key);
      FS.unlink(root + key);
    }
    for (const [key] of content) addName(key);
  }

  async function addAll(listed, nameOfAll) {
    try {
      const themes = themesIn(listed instanceof Map ? listed : listArchive(listed), nameOfAll);
      if (!themes.size) throw new Error('no folder with a Theme.ini is in it');
      for (const [theme, content] of themes) await add(theme, content);
      const names = [...themes.keys()];
      page.say(`Added: ${names.join(', ')}`);
      page.choose(names.pop());
    } catch (error) {
      const broken = error instanceof RangeError || error instanceof TypeError;
      page.say(`${nameOfAll} was not added: ${broken ? 'a broken zip archive' : error.message}`);
    }
  }

  const bytesOf = async (file) => new Uint8Array(await file.arrayBuffer());

  async function addArchive(file) {
    if (file.size > mostBytes) return page.say(`${file.name} was not added: too large`);
    await addAll(await bytesOf(file), file.name.replace(/\.zip$/i, ''));
  }

  // All files below a dropped folder.
  async function listFolder(entry, path, listed) {
    if (entry.isFile) {
      const file = await new Promise((resolve, reject) => entry.file(resolve, reject));
      listed.set(path + entry.name, {size: file.size, read: () => bytesOf(file)});
      return listed;
    }
    const reader = entry.createReader();
    for (;;) {
      const entries = await new Promise((resolve, reject) => reader.readEntries(resolve, reject));
      if (!entries.length || listed.size > mostFiles) return listed;
      for (const each of entries) await listFolder(each, path + entry.name + '/', listed);
    }
  }

  async function drop(event) {
    event.preventDefault();
    const items = [...event.dataTransfer.items].filter(({kind}) => kind === 'file');
    const dropped = items.map((item) => ({entry: item.webkitGetAsEntry(), file: item.getAsFile()}));
    for (const {entry, file} of dropped) {
      if (entry?.isDirectory) await addAll(await listFolder(entry, '', new Map()), entry.name);
      else if (file) await addArchive(file);
    }
  }

  async function saveTimes() {
    const bytes = await open(`${root}${current}/HighScores.ini`);
    if (!bytes) return page.say(`${current} has no best times`);
    const link = document.createElement('a');
    link.href = URL.createObjectURL(new Blob([bytes], {type: 'text/plain'}));
    link.download = 'HighScores.ini';
    link.click();
    setTimeout(() => URL.revokeObjectURL(link.href), 60000);
  }

  async function bringTimes(file) {
    const bytes = file.size > longestText ? null : await bytesOf(file);
    const isTable = bytes && new TextDecoder().decode(bytes).split(/[\r\n]+/).every((line) => !line || line[0] === '"');
    if (!isTable) return page.say(`${file.name} is not a table of best times`);
    const path = `${root}${current}/HighScores.ini`;
    let outcome = outcomes.changed;
    while (outcome === outcomes.changed) outcome = await replace(path, bytes, await open(path));
    page.say(outcome === outcomes.done ? `The best times of ${current} are those of ${file.name}`
      : 'The best times cannot be kept in this browser');
  }

  function listen() {
    const picks = {add: addArchive, bring: bringTimes};
    for (const [id, take] of Object.entries(picks)) {
      const input = document.getElementById(id + 'File');
      document.getElementById(id).onclick = () => input.click();
      input.onchange = async () => {
        for (const file of [...input.files]) await take(file);
        input.value = '';
      };
    }
    document.getElementById('save').onclick = saveTimes;
    addEventListener('dragover', (event) => event.preventDefault());
    addEventListener('drop', drop);
  }

  return {open, replace, start, listen};
})();

// Read by the program's own script, which follows.
var Module = {
  preRun: [() => {
    addRunDependency('files');
    files.start().finally(() => {
      files.listen();
      page.start();
      removeRunDependency('files');
    });
  }],
  onAbort: () => page.say('The game has stopped. Reload the page to play again.'),
};
