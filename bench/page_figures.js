// SPDX-License-Identifier: MIT
// What the page costs in Chromium: its size, its start, a frame, a movement, and rest. Needs build/web and what
// test.sh --web installs; run as: node bench/page_figures.js
import {readFileSync, readdirSync} from 'node:fs';
import {setTimeout as sleep} from 'node:timers/promises';
import {gzipSync} from 'node:zlib';
import {Sitting} from '../tests/web/sitting.js';
import {cupTheme} from '../tests/web/themes.js';

const site = new URL('../build/web/', import.meta.url).pathname;
const median = (values) => [...values].sort((a, b) => a - b)[values.length >> 1];
const rounded = (value) => Math.round(value * 1000) / 1000;

async function withPage(theme, work) {
  const endings = [];
  try {
    await work(await Sitting.open({after: (end) => endings.push(end)}, theme));
  } finally {
    for (const end of endings) await end();
  }
}

const packed = ['index.html', 'sorvex.js', 'sorvex.wasm']
  .map((name) => gzipSync(readFileSync(site + name), {level: 9}).length);
console.log(`packed, without themes: ${Math.round(packed.reduce((a, b) => a + b) / 1000)} KB (${packed})`);

// From the address until the window is laid out and the program waits for the player.
await withPage(cupTheme('Theme1', 6), async (sitting) => {
  const times = [];
  for (let i = 0; i < 11; ++i) {
    const context = await sitting.browser.createBrowserContext();
    const page = await context.newPage();
    await page.evaluateOnNewDocument(() => {
      new MutationObserver((_, observer) => {
        if (!document.querySelector('.button')) return;
        observer.disconnect();
        requestAnimationFrame(() => setTimeout(() => { globalThis.playable = performance.now(); }));
      }).observe(document, {childList: true, subtree: true});
    });
    await page.goto(sitting.origin);
    times.push(await (await page.waitForFunction(() => globalThis.playable)).jsonValue());
    await context.close();
  }
  console.log(`from the address to playable, ms: median ${Math.round(median(times))} of ${times.map(Math.round)}`);
});

for (const [name, field, count] of [['S', [320, 240], 3], ['M', [800, 600], 10], ['L', [1920, 1080], 21]]) {
  await withPage(cupTheme('Theme1', count, {field, target: [5, 100]}), async (sitting) => {
    const {page} = sitting;
    await page.setViewport({width: 2000, height: 1300});
    await sitting.start();
    await sitting.hover(0, sitting.rest(...sitting.theme.items.keys()));
    await sitting.grab(0);
    for (const place of [[32, 10], [60, 150]]) await sitting.move(...place);
    await page.evaluate(() => {
      const shown = page.paint;
      page.paint = (...values) => {
        shown(...values);
        globalThis.painted?.();
      };
    });
    const frame = await page.evaluate(async (x, y) => {
      const target = document.querySelector('.field');
      const move = (i) => new Promise((resolve) => {
        globalThis.painted = resolve;
        target.dispatchEvent(new PointerEvent('pointerrawupdate',
          {bubbles: true, isPrimary: true, buttons: 1, pointerType: 'mouse', clientX: x + i % 2 * 3, clientY: y}));
      });
      const rounds = [];
      for (let round = 0; round < 5; ++round) {
        const began = performance.now();
        for (let i = 0; i < 400; ++i) await move(i);
        rounds.push((performance.now() - began) / 400);
      }
      return Math.min(...rounds);
    }, sitting.at.x + 60, sitting.at.y + 150);
    await page.evaluate(() => {
      globalThis.delays = [];
      let asked = 0;
      addEventListener('pointerrawupdate', (event) => { asked = event.timeStamp; }, {capture: true});
      globalThis.painted = () => globalThis.delays.push(performance.now() - asked);
    });
    for (let i = 0; i < 60; ++i) {
      await sitting.move(70 + i, 150);
      await sleep(5);
    }
    const delays = await page.evaluate(() => globalThis.delays);
    console.log(`${name}: a moving frame ${rounded(frame)} ms; from the pointer's event to the field's canvas, ` +
      `median ${rounded(median(delays))} ms of ${delays.length}`);
  });
}

// The processor time of all of the browser's processes, in ticks of 10 ms.
function ticks() {
  let sum = 0;
  for (const process of readdirSync('/proc').filter((name) => /^\d+$/.test(name))) {
    try {
      if (!readFileSync(`/proc/${process}/cmdline`, 'utf8').includes('chromium')) continue;
      const fields = readFileSync(`/proc/${process}/stat`, 'utf8').split(') ')[1].split(' ');
      sum += Number(fields[11]) + Number(fields[12]);
    } catch {
      // It has ended meanwhile.
    }
  }
  return sum;
}
await withPage(cupTheme('Theme1', 3), async ({page}) => {
  const rest = async (what) => {
    await sleep(3000);
    const before = ticks();
    await sleep(20000);
    console.log(`${what}: ${(ticks() - before) / 20} % of a core`);
  };
  await page.evaluate(() => document.querySelector('[data-key=s]').click());
  await rest('in a game at rest');
  await page.evaluate(() => document.querySelector('[aria-label="Show or hide the time"]').click());
  await rest('the same with the clock shown');
  await page.goto('about:blank');
  await rest('an empty page');
});
