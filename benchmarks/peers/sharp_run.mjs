// Cuts a job's files with sharp: sharp_run.mjs ROWS SOURCE FOLDER [adaptive] [parallel]
import { mkdirSync, readFileSync } from 'node:fs';
import { createRequire } from 'node:module';
import { dirname } from 'node:path';

const sharp = createRequire(process.cwd() + '/')('sharp'); // installed where the benchmark runs
const [rowsPath, sourcePath, folder, ...options] = process.argv.slice(2);
const adaptiveFiltering = options.includes('adaptive');
const parallel = options.includes('parallel');

const source = readFileSync(sourcePath);
const rows = readFileSync(rowsPath, 'utf8').trim().split('\n').map((line) => line.split('\t'));
for (const [path] of rows) mkdirSync(dirname(`${folder}/${path}`), { recursive: true });
sharp.cache(false); // otherwise the source is decoded for the first file alone
if (!parallel) sharp.concurrency(1);

const cut = ([path, width, height]) =>
  sharp(source)
    .resize(Number(width), Number(height), { fit: 'fill' })
    .ensureAlpha()
    .png({ adaptiveFiltering })
    .toFile(`${folder}/${path}.png`);

const start = performance.now();
const processorStart = process.cpuUsage();
if (parallel) {
  await Promise.all(rows.map(cut));
} else {
  for (const row of rows) await cut(row);
}
const processor = process.cpuUsage(processorStart);
console.log(performance.now() - start, (processor.user + processor.system) / 1000);
