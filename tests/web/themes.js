// SPDX-License-Identifier: MIT
// Themes of plain shapes, the archives that they come in, and what the play field must show by raster operations alone.
import {deflateRawSync} from 'node:zlib';

const black = 0x000000, white = 0xFFFFFF;

/// A picture as rows of 0xRRGGBB.
export function picture(width, height, color) {
  const at = Uint32Array.from({length: width * height}, (_, i) => color(i % width, Math.floor(i / width)));
  return {width, height, at};
}

function bmp({width, height, at}) {
  const stride = (width * 3 + 3) & ~3;
  const bytes = Buffer.alloc(54 + stride * height);
  bytes.write('BM');
  [54 + stride * height, 0, 54, 40, width, height].forEach((field, i) => bytes.writeUInt32LE(field, 2 + 4 * i));
  bytes.writeUInt16LE(1, 26);
  bytes.writeUInt16LE(24, 28);
  for (let y = 0; y < height; ++y)
    for (let x = 0; x < width; ++x) bytes.writeUIntLE(at[(height - 1 - y) * width + x], 54 + y * stride + 3 * x, 3);
  return bytes;
}

const colored = ({width, height, at}, color) =>
  picture(width, height, (x, y) => at[y * width + x] === black ? color : white);
const cup = (width, height) =>
  picture(width, height, (x, y) => x < 3 || x >= width - 3 || y >= height - 3 ? black : white);

/// `count` items at rest in cups that stand side by side; `places` moves each cup.
export function cupTheme(name, count, {places, clear = 2, field = [316, 236], target = [250, 180], times} = {}) {
  const items = Array.from({length: count}, (_, i) => {
    const [contX, contY] = places ? places[i] : [20 + 60 * i, 20];
    const mask = picture(14, 12, (x) => x < clear ? white : black);
    const contMask = cup(40, 60);
    return {contX, contY, x: contX + 5, y: contY + 43, mask, color: colored(mask, 0xC00000 + 8 * i), contMask,
      contColor: colored(contMask, 0x0000C0 + 8 * i)};
  });
  const targetMask = cup(40, 30);
  // No two pixels near each other are alike, so that a picture drawn one pixel off shows.
  const background = picture(...field, (x, y) => (x * 7 & 0x7F) << 16 | (y * 5 & 0x7F) << 8 | (x + y) & 0x7F);
  return {name, items, background, target: {x: target[0], y: target[1], mask: targetMask,
    color: colored(targetMask, 0x00C000)}, times: times ?? '"Nobody"\r\n"00/00/00"\r\n"100"\r\n'.repeat(10)};
}

/// The theme's files by their names.
export function filesOf({items, background, target, times}) {
  const files = {'Theme.ini': items.flatMap(({x, y, contX, contY}) => [x, y, contX, contY, '']).join('\r\n')
    .replaceAll('\r\n\r\n', '\r\n'), 'Theme2.ini': `${target.x},${target.y}\r\n`, 'bg.bmp': bmp(background),
  'pS.bmp': bmp(target.color), 'pM.bmp': bmp(target.mask)};
  if (times) files['HighScores.ini'] = times;
  items.forEach((item, i) => Object.assign(files, {[`ss${i}.bmp`]: bmp(item.color), [`sm${i}.bmp`]: bmp(item.mask),
    [`cs${i}.bmp`]: bmp(item.contColor), [`cm${i}.bmp`]: bmp(item.contMask)}));
  return files;
}

/// A zip archive without check sums; `declared` replaces the size that it says its files have.
export function zip(files, declared) {
  const local = [], central = [];
  let offset = 0;
  for (const [name, content] of Object.entries(files)) {
    const bytes = Buffer.from(content), packed = deflateRawSync(bytes), path = Buffer.from(name);
    const header = Buffer.alloc(30), entry = Buffer.alloc(46);
    for (const [into, at] of [[header, 4], [entry, 6]]) {
      [20, 0x800, 8].forEach((field, i) => into.writeUInt16LE(field, at + 2 * i));
      [packed.length, declared ?? bytes.length].forEach((field, i) => into.writeUInt32LE(field, at + 14 + 4 * i));
      into.writeUInt16LE(path.length, at + 22);
    }
    header.writeUInt32LE(0x04034B50);
    entry.writeUInt32LE(0x02014B50);
    entry.writeUInt32LE(offset, 42);
    local.push(header, path, packed);
    central.push(entry, path);
    offset += header.length + path.length + packed.length;
  }
  const end = Buffer.alloc(22), count = Object.keys(files).length, directory = Buffer.concat(central);
  end.writeUInt32LE(0x06054B50);
  end.writeUInt16LE(count, 8);
  end.writeUInt16LE(count, 10);
  end.writeUInt32LE(directory.length, 12);
  end.writeUInt32LE(offset, 16);
  return Buffer.concat([...local, directory, end]);
}

export const archive = (theme) =>
  zip(Object.fromEntries(Object.entries(filesOf(theme)).map(([name, content]) => [`${theme.name}/${name}`, content])));

/// The field with `items` ([number, x, y]) in their order, and the container `cupOf` in front.
export function paintField({items, background, target}, shown, cupOf) {
  const field = picture(background.width, background.height, (x, y) => background.at[y * background.width + x]);
  const draw = (left, top, color, mask) => {
    for (let i = 0; i < mask.at.length; ++i) {
      const x = left + i % mask.width, y = top + Math.floor(i / mask.width);
      if (x < 0 || y < 0 || x >= field.width || y >= field.height) continue;
      const place = y * field.width + x;
      field.at[place] = (field.at[place] | ~mask.at[i] & white) & color.at[i];
    }
  };
  draw(target.x, target.y, target.color, target.mask);
  for (const [i, x, y] of shown) draw(x, y, items[i].color, items[i].mask);
  if (cupOf !== undefined) draw(items[cupOf].contX, items[cupOf].contY, items[cupOf].contColor, items[cupOf].contMask);
  return field;
}
