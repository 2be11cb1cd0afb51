// Renders the catalogue's icons into the file that the server embeds: node render.mjs <set's icons.json> <output>
//
// All numbers are 32 bits, low byte first: the count of icons; where each part begins, and where the last one ends;
// the parts. They are the keys (ASCII), then for each size the pictures, some icons after one another compressed
// together (zlib): premultiplied 0xAARRGGBB, row by row from the top.
import { execFileSync } from 'node:child_process';
import { mkdtempSync, readFileSync, readdirSync, renameSync, rmSync, statSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';
import { pictureSource, placed, readCatalogue, svgDocument } from './catalogue.mjs';

const sizes = [16, 24, 32];
/** So many have much in common, and are little to unpack for the sake of one. */
const groupSize = 32;
const columns = 16;
const here = dirname(fileURLToPath(import.meta.url));
const [set, output] = process.argv.slice(2);

/** Build trees share the output: where another one has just made it, nothing is left to do. */
function upToDate() {
    const modified = (file) => statSync(file, { throwIfNoEntry: false })?.mtimeMs ?? 0;
    const drawings = readdirSync(join(here, 'drawings')).map((name) => join('drawings', name));
    const inputs = ['catalogue.txt', 'catalogue.mjs', 'render.mjs', 'drawings', ...drawings];
    return modified(output) > Math.max(modified(set), ...inputs.map((name) => modified(join(here, name))));
}

/** The icons of one size, each as its premultiplied pixels. */
function rendered(icons, source, size, folder) {
    const [svg, png] = ['sheet.svg', 'sheet.png'].map((name) => join(folder, name));
    const place = (index) => ({ x: (index % columns) * size, y: Math.floor(index / columns) * size, size });
    const sheet = icons.map((icon, index) => placed(icon, source, `i${index}`, place(index))).join('');
    writeFileSync(svg, svgDocument(columns * size, Math.ceil(icons.length / columns) * size, sheet));
    // Without -u, documents beyond a size are refused.
    execFileSync('rsvg-convert', ['--unlimited', svg, '--output', png]);
    const rgba = execFileSync('convert', [png, '-depth', '8', 'RGBA:-'], { maxBuffer: 1 << 26 });
    return icons.map((_, index) => {
        const pixels = Buffer.alloc(size * size * 4);
        for (let at = 0; at < size * size; ++at) {
            const x = place(index).x + (at % size);
            const y = place(index).y + Math.floor(at / size);
            const from = (y * columns * size + x) * 4;
            const alpha = rgba[from + 3];
            [2, 1, 0].forEach((channel, position) => {
                pixels[at * 4 + position] = Math.round((rgba[from + channel] * alpha) / 255);
            });
            pixels[at * 4 + 3] = alpha;
        }
        return pixels;
    });
}

/** Takes its time, which is spent once, and saves the server eight kilobytes over what the usual ones write. */
function compressed(groups, folder) {
    const files = groups.map((_, index) => join(folder, `group-${index}`));
    groups.forEach((group, index) => writeFileSync(files[index], group));
    execFileSync('zopfli', ['--zlib', ...files]);
    return files.map((file) => readFileSync(`${file}.zlib`));
}

function packed(icons, pictures, folder) {
    const groups = pictures.flatMap((ofSize) =>
        Array.from({ length: Math.ceil(icons.length / groupSize) }, (_, group) =>
            Buffer.concat(ofSize.slice(group * groupSize, (group + 1) * groupSize)),
        ),
    );
    const parts = [...icons.map(({ key }) => Buffer.from(key, 'ascii')), ...compressed(groups, folder)];
    const numbers = [icons.length];
    let end = 4 * (parts.length + 2);
    for (const part of parts) {
        numbers.push(end);
        end += part.length;
    }
    numbers.push(end);
    const head = Buffer.alloc(4 * numbers.length);
    numbers.forEach((number, index) => head.writeUInt32LE(number, 4 * index));
    return Buffer.concat([head, ...parts]);
}

if (!upToDate()) {
    const icons = readCatalogue(join(here, 'catalogue.txt'));
    const source = pictureSource(set, join(here, 'drawings'));
    const folder = mkdtempSync(join(tmpdir(), 'cell-icons-'));
    try {
        const pictures = sizes.map((size) => rendered(icons, source, size, folder));
        writeFileSync(`${output}.${process.pid}`, packed(icons, pictures, folder));
        renameSync(`${output}.${process.pid}`, output);
    } finally {
        rmSync(folder, { recursive: true });
    }
}
