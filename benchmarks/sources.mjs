// Draws the benchmark's sources into the folder sources/ from two Debian packages unpacked in
// packages/: a vector icon of tango-icon-theme and a photographed painting of mate-backgrounds.
import { mkdirSync } from 'node:fs';
import { createRequire } from 'node:module';

const sharp = createRequire(process.cwd() + '/')('sharp'); // installed where the benchmark runs
const icon = 'packages/usr/share/icons/Tango/scalable/apps/internet-web-browser.svg';
const photo = 'packages/usr/share/backgrounds/mate/abstract/Elephants_5640x3172.jpg';

mkdirSync('sources', { recursive: true });
const draw = (picture, side, name) =>
  sharp(picture, { density: Math.max(72, (72 * side) / 48) }) // the icon is 48 points wide
    .resize(side, side, { fit: 'fill' })
    .ensureAlpha()
    .png({ compressionLevel: 1 })
    .toFile(`sources/${name}.png`);
await draw(icon, 1024, 'icon1024');
await draw(icon, 64, 'icon64');
await draw(photo, 4096, 'photo4096');
for (const megapixels of [1, 4, 16, 64]) {
  await draw(photo, Math.round(Math.sqrt(megapixels) * 1024), `growth${megapixels}`);
}

// Photos of 48 megapixels as cameras store them.
const camera = () => sharp(photo).resize(8000, 6000, { fit: 'fill' }).jpeg({ quality: 92 });
await camera().toFile('sources/drop-srgb.jpg');
await camera().withIccProfile('p3').toFile('sources/drop-p3.jpg');
await camera().withMetadata({ orientation: 6 }).toFile('sources/drop-turned.jpg');
