// Writes each example in Basic of the documentation as a script of its own: the blocks ```vb, which run without a form.
// A line that ends in a comment with a text in quotes, `name = ...  ' "12"`, has to give that text. Each script ends with
// "ok", or says which line failed.
//
//   node examples.mjs <folder of the documentation> <folder of the scripts>
import { mkdirSync, readdirSync, readFileSync, writeFileSync } from 'node:fs';
import { join, relative } from 'node:path';

const [source, target] = process.argv.slice(2);
mkdirSync(target, { recursive: true });

function* pages(folder) {
    for (const entry of readdirSync(folder, { withFileTypes: true })) {
        const path = join(folder, entry.name);
        if (entry.isDirectory()) yield* pages(path);
        else if (entry.name.endsWith('.md')) yield path;
    }
}

const quoted = text => `"${text.replaceAll('"', '""')}"`;

let count = 0;
for (const page of pages(source)) {
    const text = readFileSync(page, 'utf8');
    for (const block of text.matchAll(/^```vb\n([\s\S]*?)^```$/gm)) {
        const first = text.slice(0, block.index).split('\n').length + 1;
        const lines = ['On Error Resume Next'];
        block[1].split('\n').forEach((line, at) => {
            const place = `${relative(source, page)}:${first + at}`;
            if (!line.trim()) return;
            lines.push(line);
            lines.push(`If Err.Number <> 0 Then WScript.Echo ${quoted(place)} & ": " & Err.Description : WScript.Quit 1`);
            const wanted = line.match(/^\s*(\w+) = .*' "(.*)"$/);
            if (wanted) lines.push(
                `If CStr(${wanted[1]}) <> ${quoted(wanted[2])} Then WScript.Echo ${quoted(place)} & ": " & ${wanted[1]} : WScript.Quit 1`);
        });
        lines.push('WScript.Echo "ok"', '');
        writeFileSync(join(target, `${String(++count).padStart(2, '0')}.vbs`), lines.join('\r\n'));
    }
}
if (count === 0) throw new Error('the documentation has no example');
console.log(`${count} examples`);
