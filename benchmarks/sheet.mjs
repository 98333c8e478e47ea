// Sets small pictures out as one, each of their pixels enlarged to a square:
// sheet.mjs FOLDER COLUMNS ROWS RESULT, where the picture of a column and a row, both separated by
// commas, is FOLDER/COLUMN/ROW.png.
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
const width = 2 * margin + columns.length * step - (step - cell);
const height = head + margin + rows.length * step;

const left = (column) => margin + column * step;
const titles = columns.map((name, column) =>
  `<text x="${left(column) + cell / 2}" y="${head - 6}">${name}</text>`);
const heading = Buffer.from(
  `<svg xmlns="http://www.w3.org/2000/svg" width="${width}" height="${head}" font-size="16"
    font-family="sans-serif" text-anchor="middle">${titles.join('')}</svg>`);

const enlarged = (path) => sharp(path).resize(cell, cell, { kernel: 'nearest' }).png().toBuffer();
const layers = columns.flatMap((column, x) => rows.map(async (row, y) => ({
  input: await enlarged(`${folder}/${column}/${row}.png`),
  left: left(x),
  top: head + y * step,
})));
await sharp({ create: { width, height, channels: 3, background: 'white' } })
  .composite([{ input: heading, left: 0, top: 0 }, ...(await Promise.all(layers))])
  .png()
  .toFile(result);
