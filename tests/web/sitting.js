// SPDX-License-Identifier: MIT
// One player before a page of his own, in a browser that keeps nothing from before.
import assert from 'node:assert/strict';
import {createServer} from 'node:http';
import {readFile} from 'node:fs/promises';
import {extname, join, normalize} from 'node:path';
import {setTimeout as sleep} from 'node:timers/promises';
import {PNG} from 'pngjs';
import puppeteer from 'puppeteer-core';
import {archive, paintField} from './themes.js';

const site = new URL('../../build/web/', import.meta.url).pathname;
const types = {'.html': 'text/html', '.js': 'text/javascript', '.wasm': 'application/wasm', '.ico': 'image/x-icon'};

/// Serves the site with `extra` in front of its files.
async function serve(extra) {
  const server = createServer(async (request, response) => {
    const asked = decodeURIComponent(new URL(request.url, 'http://x').pathname);
    const path = normalize(asked).replace(/^\/$/, '/index.html');
    try {
      const bytes = extra[path.slice(1)] ?? await readFile(join(site, path));
      response.writeHead(200, {'Content-Type': types[extname(path)] ?? 'application/octet-stream'}).end(bytes);
    } catch {
      response.writeHead(404).end();
    }
  });
  await new Promise((resolve) => server.listen(0, '127.0.0.1', resolve));
  return server;
}

export async function until(what, holds, milliseconds = 10000) {
  for (const end = Date.now() + milliseconds; Date.now() < end; await sleep(20)) if (await holds()) return;
  assert.fail(`${typeof what === 'function' ? await what() : what} within ${milliseconds} ms`);
}

export class Sitting {
  /// The site has `theme` as Theme1, and nothing else unless `themes` has more.
  static async open(t, theme, {browser = 'chrome', ratio = 1, touch = false, themes = [], before, path = ''} = {}) {
    const sitting = new Sitting();
    t.after(() => Promise.all([sitting.browser?.close(), sitting.server?.close()]));
    const all = [theme, ...themes];
    sitting.theme = theme;
    sitting.ratio = ratio;
    sitting.server = await serve({'themes/themes.txt': all.map(({name}) => name + '\n').join(''),
      ...Object.fromEntries(all.map((each) => [`themes/${each.name}.zip`, archive(each)]))});
    sitting.origin = `http://127.0.0.1:${sitting.server.address().port}`;
    const args = browser === 'chrome' ? ['--no-sandbox', '--force-color-profile=srgb', '--window-size=800,900',
      `--force-device-scale-factor=${ratio}`] : ['--width=800', '--height=900'];
    sitting.browser = await puppeteer.launch({browser, args, headless: true, protocolTimeout: 60000,
      defaultViewport: null,
      executablePath: browser === 'chrome' ? '/usr/bin/chromium' : '/usr/bin/firefox-esr'});
    sitting.requests = [];
    sitting.complaints = [];
    sitting.page = await sitting.newPage({touch, before, path});
    return sitting;
  }

  async newPage({touch = false, before, path = '', blank = false} = {}) {
    const page = await this.browser.newPage();
    page.on('request', (request) => this.requests.push(request.url()));
    page.on('pageerror', (error) => this.complaints.push(String(error)));
    page.on('console', (message) => ['error', 'warn'].includes(message.type()) && this.complaints.push(message.text()));
    if (touch) await page.setViewport({width: 700, height: 700, hasTouch: touch});
    if (before) await page.evaluateOnNewDocument(before);
    if (blank) return page;
    await page.goto(`${this.origin}/${path}`);
    await until('the game begins', () => page.evaluate(() => document.querySelector('.button, dialog') !== null));
    return page;
  }

  /// The page has complained of nothing, and asked nobody but where it came from.
  checkManners() {
    assert.deepEqual(this.complaints, []);
    for (const url of this.requests) assert.ok(url.startsWith(this.origin) || url.startsWith('blob:'), url);
  }

  /// Lets go of a file or folder over the page, in Chromium.
  async drop(path) {
    const session = await this.page.createCDPSession();
    const data = {items: [], files: [path], dragOperationsMask: 1};
    for (const type of ['dragEnter', 'dragOver', 'drop'])
      await session.send('Input.dispatchDragEvent', {type, x: 350, y: 600, data});
  }
  awaitTheme(name) { return until(`${name} on the field`, async () => await this.title() === `Sorvex - ${name}`); }

  title() { return this.page.title(); }
  /// Waits for a box or window with that title, and with `text` in it.
  async box(title, text = '') {
    const open = () => this.page.$$eval('dialog', (dialogs) => dialogs.map(({innerText}) => innerText));
    await until(async () => `no box ${title} ${text} but ${await open()}`, async () => {
      const last = (await open()).pop();
      return last?.startsWith(title) && last.includes(text);
    });
  }
  async answer(title, key = 'Enter', text = '') {
    await this.box(title, text);
    await this.page.keyboard.press(key);
    await until(`${title} stays open`, () => this.page.evaluate((wanted) =>
      [...document.querySelectorAll('dialog h2')].every(({innerText}) => innerText !== wanted), title));
  }
  button(name) { return this.page.locator(`::-p-aria([name="${name}"][role="button"])`).click(); }
  async press(...keys) {
    for (const key of keys) await this.page.keyboard.press(key);
  }
  panelShows() {
    return this.page.evaluate(() => [...document.querySelectorAll('.surface')].some((each) =>
      each.ariaLabel === 'Best times' && each.checkVisibility()));
  }
  /// The first column of the table that is kept, or shown.
  names() {
    return this.page.evaluate(() => [...document.querySelectorAll('[aria-label="Best times"] > .label')]
      .filter((label) => label.offsetLeft === 42).sort((a, b) => a.offsetTop - b.offsetTop)
      .map((label) => label.textContent));
  }

  // Places are pixels of the play field.

  /// The field's corner and the size of a pixel of it, in the screen's pixels.
  async field() {
    return this.page.evaluate(() => {
      const canvas = document.querySelector('.field canvas');
      const {left, top, width} = canvas.getBoundingClientRect();
      const scale = Math.round(width * devicePixelRatio / canvas.width * 1000) / 1000;
      return {x: left * devicePixelRatio + 2 * scale, y: top * devicePixelRatio + 2 * scale, scale,
        width: canvas.width - 4, height: canvas.height - 4};
    });
  }
  async move(x, y) {
    const field = this.at ??= await this.field();
    await this.page.mouse.move(...[field.x + (x + 0.5) * field.scale, field.y + (y + 0.5) * field.scale]
      .map((place) => place / this.ratio));
  }
  /// What the screen shows of the field.
  async look() {
    const field = this.at = await this.field();
    const shot = PNG.sync.read(Buffer.from(await this.page.screenshot({captureBeyondViewport: false})));
    const [width, height] = [field.width, field.height].map((pixels) => Math.round(pixels * field.scale));
    const part = new PNG({width, height});
    PNG.bitblt(shot, part, Math.round(field.x), Math.round(field.y), width, height, 0, 0);
    return {width, height, data: part.data, scale: field.scale};
  }
  /// What differs from the field with these items and this cup; empty: nothing.
  async difference(items, cupOf) {
    const expected = paintField(this.theme, items, cupOf);
    const {width, height, data, scale} = await this.look();
    if (Math.abs(scale - Math.round(scale)) > 1e-3) return `a pixel is ${scale} of the screen's`;
    if (width !== expected.width * Math.round(scale) || height !== expected.height * Math.round(scale))
      return `${width} x ${height} pixels`;
    for (let y = 0; y < height; ++y) {
      for (let x = 0; x < width; ++x) {
        const seen = data.readUIntBE((y * width + x) * 4, 3);
        const right = expected.at[Math.floor(y / scale) * expected.width + Math.floor(x / scale)];
        if (seen !== right) return `${seen.toString(16)} instead of ${right.toString(16)} at ${x}, ${y}`;
      }
    }
    return '';
  }
  rest(...numbers) { return numbers.map((i) => [i, this.theme.items[i].x, this.theme.items[i].y]); }
  async awaitField(when, items, cupOf, between) {
    let seen;
    await until(() => `the field ${when}: ${seen}`, async () => {
      await between?.();
      return (seen = await this.difference(items, cupOf)) === '';
    });
  }
  /// Moves to and fro in a cup until it is the current one: all that was done before has had its effect then.
  async hover(cupOf, items) {
    const {contX, contY} = this.theme.items[cupOf];
    let step = 0;
    await this.awaitField(`hovering ${cupOf}`, items, cupOf, () => this.move(contX + 10 + step++ % 2, contY + 10));
  }
  async start() {
    await this.button('Start');
    await this.awaitField('at the start', this.rest(...this.theme.items.keys()), 0);
  }
  /// Takes the item by its middle, which it is dragged by from then on.
  async grab(i) {
    const {x, y} = this.theme.items[i];
    await this.move(x + 7, y + 6);
    await this.page.mouse.down();
    await this.move(x + 7, y + 7);
  }
  /// Takes an item out of its cup, `others` being where they rest, and to the target.
  async putIn(i, others) {
    const [openX, openY] = [this.theme.items[i].x + 7, Math.max(6, this.theme.items[i].contY - 20)];
    const {target} = this.theme;
    await this.hover(i, this.rest(...[i, ...others].sort()));
    await this.grab(i);
    await this.move(openX, openY);
    const sorted = [...this.rest(...others), [i, openX - 7, openY - 6]].sort(([a], [b]) => a - b);
    await this.awaitField(`with ${i} in the open`, sorted, i);
    await this.move(target.x + 20, target.y + 15);
    // The last one ends the game with a box, whose backdrop dims the field.
    if (others.length) await this.awaitField(`with ${i} put in`, this.rest(...others), undefined);
    else await this.box('Sorvex');
    await this.page.mouse.up();
  }
}
