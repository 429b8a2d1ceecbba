// SPDX-License-Identifier: MIT
// What players do besides a whole game, in Chromium.
import assert from 'node:assert/strict';
import {mkdir, mkdtemp, readFile, rm, writeFile} from 'node:fs/promises';
import {tmpdir} from 'node:os';
import {join} from 'node:path';
import {test} from 'node:test';
import {setTimeout as sleep} from 'node:timers/promises';
import {PNG} from 'pngjs';
import {Sitting, until} from './sitting.js';
import {archive, cupTheme, filesOf, zip} from './themes.js';

const oneItem = () => cupTheme('Theme1', 1);

/// Gives files to the page's field for them, by their names.
async function pick(sitting, field, named) {
  const folder = await mkdtemp(join(tmpdir(), 'sorvex-'));
  for (const [name, bytes] of Object.entries(named)) await writeFile(join(folder, name), bytes);
  await (await sitting.page.$(field)).uploadFile(...Object.keys(named).map((name) => join(folder, name)));
  await sitting.page.$eval(field, (input) => new Promise((resolve) => {
    const look = () => input.value ? setTimeout(look, 20) : resolve();
    look();
  }));
  await rm(folder, {recursive: true});
}
const status = (sitting) => sitting.page.$eval('#status', ({textContent}) => textContent);
const tableOf = (sitting, theme = 'Theme1', file = 'HighScores.ini') => sitting.page.evaluate(async (path) =>
  new TextDecoder().decode(await files.open(path)), `/themes/${theme}/${file}`);

/// Plays a game with one item until its time is to be entered.
async function playToTheName(sitting) {
  await sitting.start();
  await sitting.putIn(0, []);
  await sitting.answer('Sorvex');
  await sitting.box('You got a highscore');
}
async function enterName(sitting, name) {
  await sitting.page.keyboard.type(name);
  await sitting.answer('You got a highscore');
}

test('the chooser shows the chosen theme at once, and nothing is chosen before', async (t) => {
  const other = cupTheme('Other Θέμα 日本', 2, {field: [200, 150], target: [150, 100]});
  const sitting = await Sitting.open(t, oneItem(), {themes: [other]});
  await sitting.press('F3', 'Enter');
  await sitting.box('Choose a theme');
  await sleep(300);
  await sitting.press('o');
  await sitting.answer('Choose a theme');
  await sitting.awaitTheme(other.name);
  const first = sitting.theme;
  sitting.theme = other;
  await sitting.awaitField('before Start', sitting.rest(0, 1), 0);
  await sitting.button('Change the theme');
  await sitting.box('Choose a theme');
  await sitting.press('ArrowDown');
  await sitting.answer('Choose a theme');
  await sitting.awaitTheme('Theme1');
  sitting.theme = first;
  await sitting.awaitField('before Start', sitting.rest(0), 0);
  sitting.checkManners();
});

test('the window stands as designed', async (t) => {
  const sitting = await Sitting.open(t, oneItem());
  const places = {'.client': [0, 0, 335, 294], '.field': [8, 8, 320, 240], '[data-key=s]': [49, 255, 105, 33],
    '[title^=Lef]': [159, 255, 33, 33], '[data-key=h]': [198, 255, 105, 33], '[title^=Change]': [304, 264, 24, 24]};
  for (const [selector, place] of Object.entries(places)) {
    const seen = await sitting.page.$eval(selector, (element) => {
      const corner = document.querySelector('.client').getBoundingClientRect();
      const {left, top, width, height} = element.getBoundingClientRect();
      return [left - corner.left, top - corner.top, width, height];
    });
    assert.deepEqual(seen, place, selector);
  }
  sitting.checkManners();
});

test('details and about box; the logo follows the controlled pointer and is back soon', async (t) => {
  const sitting = await Sitting.open(t, oneItem());
  await sitting.press('F2');
  await sitting.answer('Theme Details', 'Escape', 'No details found');
  await sitting.button('Theme details');
  await sitting.answer('Theme Details');
  await sitting.press('F1');
  await sitting.box('About', '1.00.0000');
  const logo = () => sitting.page.$eval('.image', (image) => `${image.style.left} ${image.style.top}`);
  const {x, y} = await (await sitting.page.$('.image')).boundingBox();
  assert.equal(await logo(), '8px 8px');
  await sitting.page.keyboard.down('Control');
  await sitting.page.mouse.move(x + 40, y + 40);
  await sitting.page.mouse.down();
  await sitting.page.mouse.move(x + 440, y + 140);  // outside the box
  await until('the logo follows', async () => parseFloat(await logo()) > 300);
  await sitting.page.mouse.up();
  await sitting.page.keyboard.up('Control');
  await until('the logo is back', async () => await logo() === '8px 8px', 1000);
  for (const close of [() => sitting.press('Escape'), () => sitting.press('Enter'), () => sitting.button('Close')]) {
    await close();
    await until('the box closes', () => sitting.page.$('dialog').then((open) => open === null));
    await sitting.press('F1');
    await sitting.box('About');
  }
  sitting.checkManners();
});

test('Tab, Space, Enter and access keys do as their rules say', async (t) => {
  const sitting = await Sitting.open(t, oneItem());
  const shows = (shown) => until(`panel ${shown}`, async () => await sitting.panelShows() === shown);
  await sitting.press('Enter');
  await sitting.awaitField('after Enter on Start, which has the focus first', sitting.rest(0), 0);
  await sitting.press('Tab', 'Space');
  await shows(true);  // HighScores is second
  await sitting.press('Tab', 'Tab', 'Space');
  await shows(false);  // then the field, then Close
  await sitting.press('Enter');
  await shows(true);  // Close hid itself: Enter is the default button's
  await sitting.press('Tab', 'Enter');
  await shows(false);  // Enter on the focused Close
  const withAlt = async (key) => {
    await sitting.page.keyboard.down('Alt');
    await sitting.press(key);
    await sitting.page.keyboard.up('Alt');
  };
  await withAlt('h');
  await shows(true);
  await withAlt('c');
  await sleep(300);
  assert.ok(await sitting.panelShows(), 'Close has no access key');
  sitting.checkManners();
});

for (const ratio of [1, 1.25, 1.5, 2]) {
  test(`a press means the pixel seen there at ${ratio} screen pixels to the page's`, async (t) => {
    const sitting = await Sitting.open(t, cupTheme('Theme1', 2, {clear: 13}), {ratio});
    await sitting.start();
    const {x, y} = sitting.theme.items[0];
    const {x: left, y: top, scale} = await sitting.field();
    const pressAt = async (column, row) => {
      await sitting.hover(1, sitting.rest(0, 1));
      await sitting.hover(0, sitting.rest(0, 1));
      await sitting.page.mouse.move((left + column + 0.5) / ratio, (top + row + 0.5) / ratio);
      await sitting.page.mouse.down();
      await sitting.page.mouse.move((left + column + 0.5) / ratio, (top + row + scale + 0.5) / ratio);
    };
    const row = (y + 6) * scale;
    for (const column of [(x + 13) * scale - 1, (x + 14) * scale]) {
      await pressAt(column, row);
      await sitting.move(x + 13, y - 40);
      await sitting.page.mouse.up();
      await sitting.hover(1, sitting.rest(0, 1));
    }
    for (let column = (x + 13) * scale; column < (x + 14) * scale; ++column) {
      await pressAt(column, row);
      await sitting.awaitField('after a press on the item', [[0, x, y + 1], ...sitting.rest(1)], 0);
      await sitting.page.mouse.up();
    }
    sitting.checkManners();
  });
}

test('every movement that came while the page was busy counts', async (t) => {
  const sitting = await Sitting.open(t, cupTheme('Theme1', 1, {clear: 13}));
  await sitting.start();
  await sitting.hover(0, sitting.rest(0));
  const busy = sitting.page.evaluate(() => {
    for (const end = performance.now() + 700; performance.now() < end;);
  });
  const moves = [sitting.move(30, 70), sitting.page.mouse.down()];
  for (const place of [[38, 70], [38, 20], [200, 100]]) moves.push(sitting.move(...place));
  await Promise.all([busy, ...moves]);
  await sitting.awaitField('after the pointer crossed the item', [[0, 195, 93]], 0);
  sitting.checkManners();
});

test('a finger makes the container under it current, takes the item and is held outside', async (t) => {
  const sitting = await Sitting.open(t, cupTheme('Theme1', 2), {touch: true});
  await sitting.start();
  const field = await sitting.field();
  const at = (x, y) => [field.x + x + 0.5, field.y + y + 0.5];
  const {x, y} = sitting.theme.items[1];
  const finger = await sitting.page.touchscreen.touchStart(...at(x + 7, y + 6));
  for (const place of [[x + 7, y + 7], [x + 7, 6], [400, 300], [160, 100]]) await finger.move(...at(...place));
  await sitting.awaitField('under the finger', [...sitting.rest(0), [1, 153, 94]], 1);
  await finger.move(...at(270, 195));
  await sitting.awaitField('put in', sitting.rest(0), undefined);
  await finger.end();
  sitting.checkManners();
});

test('a reload in a game leaves the table as it was, and two tabs on one table lose no time', async (t) => {
  const sitting = await Sitting.open(t, oneItem());
  const first = sitting.page, second = await sitting.newPage();
  await first.bringToFront();
  await playToTheName(sitting);
  await enterName(sitting, 'Ann');
  await until('Ann', async () => (await sitting.names())[0] === 'Ann');
  await sitting.press('Tab', 'Enter');  // closes the panel
  await sitting.start();
  await sitting.grab(0);
  await first.reload();
  await until('the game begins', () => first.$('.button'));
  for (const page of [first, second]) {
    sitting.page = page;
    await page.bringToFront();
    await playToTheName(sitting);
  }
  for (const [page, name] of [[first, 'Bob'], [second, 'Cid']]) {
    sitting.page = page;
    await page.bringToFront();
    await enterName(sitting, name);
    await until('the panel', () => sitting.panelShows());
  }
  assert.deepEqual((await sitting.names()).slice(0, 4).sort(), ['Ann', 'Bob', 'Cid', 'Nobody']);
  sitting.checkManners();
});

const refusals = [
  {what: 'a full store', error: 'Error: 61\nDisk full', quota: 1},
  {what: 'no store', error: 'Error: 75\nPath/File access error', before: () => {
    IDBFactory.prototype.open = () => { throw new DOMException('', 'SecurityError'); };
  }},
];
for (const {what, error, before, quota} of refusals) {
  test(`${what} gives the message of a file that cannot be written, and the game goes on`, async (t) => {
    const sitting = await Sitting.open(t, oneItem(), {before});
    const session = await sitting.page.createCDPSession();
    await session.send('Storage.overrideQuotaForOrigin', {origin: sitting.origin, quotaSize: quota});
    await playToTheName(sitting);
    await enterName(sitting, 'Ann');
    await sitting.answer('uhh oh!!', 'Enter', error);
    assert.match(await tableOf(sitting), /^"Nobody"/);
    await sitting.start();
    sitting.checkManners();
  });
}

test('a theme that is broken, or an archive that is hostile, does no harm', async (t) => {
  const sitting = await Sitting.open(t, oneItem());
  const broken = {...filesOf(cupTheme('x', 1)), 'bg.bmp': 'BM'};
  await pick(sitting, '#addFile', {'Broken.zip': zip(broken)});
  await sitting.answer('Theme not loaded', 'Enter', 'Broken: bg.bmp: not a bitmap that can be read');
  await sitting.awaitTheme('Theme1');
  const refused = {
    'no archive': ['PK', 'not a zip archive'],
    'cut off': [archive(oneItem()).subarray(1000), 'a broken zip archive'],
    'outside': [zip({'../Theme.ini': ''}), 'a name that cannot be kept'],
    'empty': [zip({'a/b.bmp': ''}), 'no folder with a Theme.ini is in it'],
    'bomb': [zip({'a/Theme.ini': Buffer.alloc(1 << 20)}, 100), 'larger than declared'],
    'huge': [zip({'a/Theme.ini': ''}, 0xFFFFFFF0), 'too large'],
  };
  for (const [name, [bytes, why]] of Object.entries(refused)) {
    await pick(sitting, '#addFile', {[name + '.zip']: bytes});
    assert.equal(await status(sitting), `${name} was not added: ${why}`);
  }
  await sitting.press('F3');
  await sitting.box('Choose a theme');
  assert.deepEqual(await sitting.page.$$eval('option', (all) => all.map(({text}) => text)), ['Theme1', 'Broken']);
  sitting.checkManners();
});

test('a folder is dropped, with names in any case, and again without harm to its best times', async (t) => {
  const sitting = await Sitting.open(t, oneItem());
  const folder = await mkdtemp(join(tmpdir(), 'sorvex-'));
  await mkdir(join(folder, 'Mine', 'art'), {recursive: true});
  for (const [name, bytes] of Object.entries(filesOf(oneItem())))
    await writeFile(join(folder, 'Mine', name.toUpperCase()), bytes);
  await writeFile(join(folder, 'Mine', 'art', 'bg.bmp'), 'another');
  await sitting.drop(join(folder, 'Mine'));
  await sitting.awaitTheme('Mine');
  await playToTheName(sitting);
  await enterName(sitting, 'Ann');
  await until('Ann', async () => (await sitting.names())[0] === 'Ann');
  await sitting.drop(join(folder, 'Mine'));
  await until('it is added', async () => await status(sitting) === 'Added: Mine');
  assert.match(await tableOf(sitting, 'Mine', 'HIGHSCORES.INI'), /^"Ann"/);
  await rm(folder, {recursive: true});
  sitting.checkManners();
});

test('best times are taken out as they are and brought in whole', async (t) => {
  const times = '"P"\r\n"01/02/03"\r\n"12.5"\r\n' + '"Nobody"\r\n"00/00/00"\r\n"100"\r\n'.repeat(9);
  const sitting = await Sitting.open(t, cupTheme('Theme1', 1, {times}));
  const folder = await mkdtemp(join(tmpdir(), 'sorvex-'));
  const session = await sitting.browser.target().createCDPSession();
  await session.send('Browser.setDownloadBehavior', {behavior: 'allow', downloadPath: folder});
  await sitting.button('Save the best times…');
  const saved = () => readFile(join(folder, 'HighScores.ini'), 'utf8').catch(() => '');
  await until('the table', async () => await saved() === times);
  await rm(folder, {recursive: true});
  await pick(sitting, '#bringFile', {'odd.txt': 'no table'});
  assert.equal(await status(sitting), 'odd.txt is not a table of best times');
  await pick(sitting, '#bringFile', {'HighScores.ini': times.replace('"P"', '"Q"')});
  await sitting.button('HighScores');
  await until('the table that was brought in', async () => (await sitting.names())[0] === 'Q');
  sitting.checkManners();
});

test('assistive technology reads and presses everything', async (t) => {
  const sitting = await Sitting.open(t, oneItem());
  const found = async () => {
    const list = [];
    const walk = ({role, name, children = []}) => list.push(`${role} ${name ?? ''}`) && children.forEach(walk);
    walk(await sitting.page.accessibility.snapshot({interestingOnly: false}));
    return list;
  };
  const awaitNode = (node) => until(async () => `no ${node} in ${(await found()).join('; ')}`,
    async () => (await found()).includes(node));
  const toolTip = 'Lef click for program About, right click for description of this theme';
  for (const node of ['heading Sorvex - Theme1', 'button Start', 'button HighScores', `button ${toolTip}`,
    'button Change the theme', 'button Theme details', 'image Play field, theme Theme1, 1 item left'])
    await awaitNode(node);
  const click = (selector) => sitting.page.$eval(selector, (element) => element.click());
  await click('[aria-label="Show or hide the time"]');
  await awaitNode('StaticText 00.00');
  await click('[data-key="h"]');
  await awaitNode('group Best times');
  for (const name of ['HIGHSCORES', '10. ', 'Nobody', '00/00/00', '100']) await awaitNode(`StaticText ${name}`);
  await click('[title^="Lef click"]');
  await awaitNode('dialog About');
  for (const node of ['image Logo', 'link hello@sorvex.example', 'StaticText (c) 2026 Sorvex authors, MIT licence'])
    await awaitNode(node);
  await sitting.answer('About', 'Escape');
  await sitting.press('F3');
  await awaitNode('listbox Themes');
  await sitting.answer('Choose a theme', 'Escape');
  await sitting.press('F2');
  await awaitNode('alertdialog Theme Details');
  sitting.checkManners();
});

for (const browser of ['chrome', 'firefox']) {
  const folder = process.env.SORVEX_BITMAPS;
  test(`bitmaps that others made are read to the pixel in ${browser}`, {skip: !folder}, async (t) => {
    const sitting = await Sitting.open(t, oneItem(), {browser});
    const [head, ...rows] = (await readFile(join(folder, 'manifest.tsv'), 'utf8')).trim().split('\n')
      .map((row) => row.split('\t'));
    const listed = rows.map((row) => Object.fromEntries(row.map((cell, i) => [head[i], cell])));
    let read = 0;
    for (const {file, kind, ref, ref_files: references, tol} of listed) {
      if (kind !== 'g' || ref !== 'yes') continue;
      const seen = await sitting.page.evaluate((text) => new Promise((resolve) => {
        const bytes = Uint8Array.from(atob(text), (byte) => byte.charCodeAt(0));
        const data = _malloc(bytes.length), result = _malloc(16);
        HEAPU8.set(bytes, data);
        page.await(2, data, bytes.length, result, () => {
          const [place, size, width, height] = HEAP32.subarray(result >> 2, (result >> 2) + 4);
          const characters = Array.from(HEAPU8.subarray(place, place + size), (byte) => String.fromCharCode(byte));
          resolve({width, height, pixels: btoa(characters.join(''))});
        });
      }), await readFile(join(folder, file), 'base64'));
      const pixels = Buffer.from(seen.pixels, 'base64');
      const differences = await Promise.all(references.split(',').map(async (name) => {
        const right = PNG.sync.read(await readFile(join(folder, 'ref', name)));
        if (right.width !== seen.width || right.height !== seen.height) return 256;
        const difference = (value, i) => i % 4 === 3 ? 0 : Math.abs(value - right.data[i]);
        return pixels.reduce((most, value, i) => Math.max(most, difference(value, i)), 0);
      }));
      assert.ok(Math.min(...differences) <= Number(tol), `${file}: ${differences}`);
      ++read;
    }
    assert.ok(read >= 70, `${read} files`);
    sitting.checkManners();
  });
}
