// Sets small pictures out as one, each of their pixels enlarged to a square:
// sheet.mjs FOLDER COLUMNS ROWS RESULT, where the picture of a column and a row, both separated by
// commas, is FOLDER/COLUMN/ROW.png. A row is called NAME/SIDE.
import { createRequire } from 'node:module';

const sharp = createRequire(process.cwd() + '/')('sharp'); // installed where the benchmark runs
const [folder, columnNames, rowNames, result] = process.argv.slice(2);
const columns = columnNames.split(',');
const rows = rowNames.split(',');

// A multiple of every side that is shown, so that all pixels of a picture are equally large.
const cell = 144;
const step = cell + 8;
const margin = 12;
const head = 24;
const side = 200;
const width = side + margin + columns.length * step - (step - cell);
const height = head + margin + rows.length * step;

const left = (column) => side + column * step;
const top = (row) => head + row * step;
const titles = columns.map((name, column) =>
  `<text x="${left(column) + cell / 2}" y="${head - 6}" text-anchor="middle">${name}</text>`);
const labels = rows.flatMap((row, y) => row.split('/').map((word, line) =>
  `<text x="${margin}" y="${top(y) + cell / 2 + line * 20}">${word}</text>`));
const lettering = Buffer.from(
  `<svg xmlns="http://www.w3.org/2000/svg" width="${width}" height="${height}" font-size="16"
    font-family="sans-serif">${titles.join('')}${labels.join('')}</svg>`);

const enlarged = (path) => sharp(path).resize(cell, cell, { kernel: 'nearest' }).png().toBuffer();
const layers = columns.flatMap((column, x) => rows.map(async (row, y) => ({
  input: await enlarged(`${folder}/${column}/${row}.png`),
  left: left(x),
  top: top(y),
})));
await sharp({ create: { width, height, channels: 3, background: 'white' } })
  .composite([{ input: lettering, left: 0, top: 0 }, ...(await Promise.all(layers))])
  .png()
  .toFile(result);
