// SPDX-License-Identifier: MIT
// Whole games in real browsers.
import assert from 'node:assert/strict';
import {mkdtemp, rm, writeFile} from 'node:fs/promises';
import {tmpdir} from 'node:os';
import {join} from 'node:path';
import {test} from 'node:test';
import {Sitting, until} from './sitting.js';
import {archive, cupTheme} from './themes.js';

const seed = Number(process.env.SORVEX_SEED ?? Date.now() % 100000);
/// Numbers from 0 to `below` - 1, the same for the same seed.
function random(below) {
  random.state = (Math.imul(random.state ?? seed, 1103515245) + 12345) >>> 0;
  return (random.state >>> 8) % below;
}

function unseenTheme() {
  const places = [0, 1, 2].map((i) => [10 + 70 * i + random(25), 30 + random(60)]);
  return cupTheme(`Unseen ${seed}`, 3, {places, target: [230 + random(40), 170 + random(30)], clear: 1 + random(3)});
}

/// Lets go of a file over the page, or picks it where the browser cannot be told to.
async function bring(sitting, theme) {
  const folder = await mkdtemp(join(tmpdir(), 'sorvex-'));
  const path = join(folder, 'a theme.zip');
  await writeFile(path, archive(theme));
  if (sitting.browser.process().spawnfile.includes('chromium')) await sitting.drop(path);
  else await (await sitting.page.$('#addFile')).uploadFile(path);
  await sitting.awaitTheme(theme.name);
  await rm(folder, {recursive: true});
}

for (const browser of ['chrome', 'firefox']) {
  test(`a theme nobody has seen is played to the end in ${browser}, seed ${seed}`, async (t) => {
    random.state = undefined;
    const sitting = await Sitting.open(t, cupTheme('Theme1', 1), {browser});
    const theme = sitting.theme = unseenTheme();
    await bring(sitting, theme);
    const began = Date.now();
    await sitting.start();
    await sitting.button('Start');  // ends that game and begins another
    await sitting.hover(1, sitting.rest(0, 1, 2));

    // Contact: the item slides back, and the pointer is locked out for half a second.
    const {x, y} = theme.items[1];
    await sitting.grab(1);
    await sitting.move(x + 27, y + 6);
    await sitting.awaitField('after a contact', sitting.rest(0, 1, 2), 1);
    await sitting.page.mouse.up();
    // Let go early, it slides back too; outside the page it is still held.
    await sitting.hover(0, sitting.rest(0, 1, 2));
    await sitting.hover(1, sitting.rest(0, 1, 2));
    await sitting.grab(1);
    await sitting.move(x + 7, 4);
    await sitting.awaitField('partly above it', [...sitting.rest(0), [1, x, -2], ...sitting.rest(2)], 1);
    await sitting.move(x + 7, 400);
    await sitting.move(100, 200);
    await sitting.awaitField('in the open', [...sitting.rest(0), [1, 93, 194], ...sitting.rest(2)], 1);
    await sitting.page.mouse.up();
    await sitting.hover(0, sitting.rest(0, 1, 2));

    await sitting.putIn(1, [0, 2]);
    await sitting.putIn(0, [2]);
    await sitting.putIn(2, []);
    await sitting.box('Sorvex', 'Game Over\nYou took: ');
    assert.equal(await sitting.panelShows(), false);
    await sitting.answer('Sorvex');
    await sitting.box('You got a highscore', 'What is your name?');
    await sitting.page.keyboard.type('Ann B 2nd');
    await sitting.answer('You got a highscore');
    await until('the panel shows', () => sitting.panelShows());
    const names = ['Ann B 2nd', ...Array(9).fill('Nobody')];
    assert.deepEqual(await sitting.names(), names);
    const table = await sitting.page.evaluate(async (name) =>
      new TextDecoder().decode(await files.open(`/themes/${name}/HighScores.ini`)), theme.name);
    const [, seconds] =
      /^"Ann B 2nd"\r\n"[^"]+"\r\n"([0-9.]+)"\r\n("Nobody"\r\n"00\/00\/00"\r\n"100"\r\n){9}$/.exec(table);
    assert.ok(seconds > 0 && seconds < (Date.now() - began) / 1000, seconds);

    await sitting.page.goto(`${sitting.origin}/?theme=${encodeURIComponent(theme.name)}`);
    await sitting.awaitTheme(theme.name);
    await sitting.button('HighScores');
    await until('the time is there after a reload', async () => (await sitting.names())[0] === names[0]);
    sitting.checkManners();
  });
}
