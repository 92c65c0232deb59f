// Exports, read back by the tools that they are for, against what the palette itself says.
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import test from "node:test";
import * as csstree from "css-tree";
import * as lightningcss from "lightningcss";
import * as sass from "sass";
import { compile } from "tailwindcss";

const sources = ["6E56CF", "6E56CF80", "FFFFFF", "0A0A0D", "FFD400"];
const run = (...words) => execFileSync(process.env.TINTWELL_CLI, words, { maxBuffer: 1e8 });
const exported = (source, ...words) => run("export", source, "--format", ...words);

/** Hex texts by id: "source", "tone.500", "light.primary". */
function truth(source) {
    const palette = JSON.parse(run("palette", source, "--format", "json"));
    const byte = (part) => Math.round(part * 255).toString(16).padStart(2, "0");
    const hex = ({ red, green, blue, alpha }) =>
        "#" + [red, green, blue, ...(alpha < 1 ? [alpha] : [])].map(byte).join("").toUpperCase();
    const ids = { source: hex(palette.source) };
    const take = (prefix, colors) => colors.forEach(({ id, color }) => (ids[prefix + id] = hex(color)));
    for (const section of [...palette.harmonySections, palette.monochromatic, palette.tonal]) take("", section.colors);
    take("light.", palette.lightTheme.colors);
    take("dark.", palette.darkTheme.colors);
    assert.equal(Object.keys(ids).length, 52);
    return ids;
}

/** Values by "rule property" of a style sheet that a strict parser accepts. */
function declarations(css) {
    const found = {};
    const stop = (error) => { throw error; };
    const tree = csstree.parse(css, { onParseError: stop, parseCustomProperty: true });
    csstree.walk(tree, function (node) {
        if (node.type !== "Declaration") return;
        const media = this.atrule?.prelude ? csstree.generate(this.atrule.prelude) + " " : "";
        const rule = this.rule ? csstree.generate(this.rule.prelude) : `@${this.atrule.name}`;
        found[`${media}${rule} ${node.property}`] = csstree.generate(node.value).trim();
    });
    return found;
}

/** The opaque colour that a browser makes of `value`, as "#RRGGBB". */
function inHex(value) {
    const code = Buffer.from(`a{color:${value}}`);
    const made = lightningcss.transform({ filename: "a.css", code, minify: true, targets: { chrome: 80 << 16 } });
    return csstree.generate(csstree.parse(made.code.toString())).match(/color:([^};]+)/)[1];
}

const name = (text) => `--tintwell-${text.replace(/[^a-z0-9]/g, "-")}`;
const places = (id) => {
    const [theme, role] = id.split(".");
    if (theme === "light") return [`:root,[data-theme="light"] ${name(role)}`];
    if (theme === "dark")
        return [`[data-theme="dark"] ${name(role)}`,
            `(prefers-color-scheme:dark) :root:not([data-theme="light"]) ${name(role)}`];
    return [`:root ${name(id)}`];
};

for (const source of sources)
    test(`css of ${source}`, () => {
        const css = exported(source, "css");
        lightningcss.transform({ filename: "a.css", code: css, errorRecovery: false });
        const found = declarations(css.toString());
        const polar = declarations(exported(source, "css", "--colors", "oklch").toString());
        let count = 0;
        for (const [id, hex] of Object.entries(truth(source)))
            for (const place of places(id)) {
                assert.equal(found[place], hex, place);
                assert.equal(inHex(polar[place]), inHex(hex), polar[place]);
                ++count;
            }
        const schemes = Object.entries(found).filter(([place]) => place.endsWith(" color-scheme"));
        assert.deepEqual(schemes.map(([, scheme]) => scheme), ["light", "dark", "dark"]);
        assert.equal(Object.keys(found).length, count + schemes.length);
    });

for (const source of sources)
    test(`tailwind of ${source}`, async () => {
        const colors = truth(source);
        const classes = Object.keys(colors).filter((id) => id.startsWith("tone.")).map((id) => `bg-brand-${id.slice(5)}`);
        const roles = Object.keys(colors).filter((id) => id.startsWith("light.")).map((id) => id.slice(6));
        const theme = exported(source, "tailwind").toString();
        const { build } = await compile(`${theme}@tailwind utilities;`);
        const found = declarations(build([...classes, ...roles.map((role) => `text-${role}`)]));
        for (const id of classes) {
            assert.equal(found[`.${id} background-color`], `var(--color-${id.slice(3)})`);
            assert.equal(found[`:root,:host --color-${id.slice(3)}`], colors[`tone.${id.slice(9)}`]);
        }
        for (const role of roles) {
            assert.equal(found[`.text-${role} color`], `var(${name(role)})`);
            for (const id of [`light.${role}`, `dark.${role}`])
                for (const place of places(id)) assert.equal(found[place], colors[id], place);
        }
    });

for (const source of sources)
    test(`scss of ${source}`, () => {
        const each = '@use "sass:color"; @each $id, $color in $tintwell { .#{$id} { color: color.to-space($color, rgb); } }';
        for (const notation of ["hex", "oklch"]) {
            const map = exported(source, "scss", "--colors", notation).toString();
            const found = declarations(sass.compileString(map + each).css);
            const colors = Object.entries(truth(source));
            assert.equal(Object.keys(found).length, colors.length);
            for (const [id, hex] of colors) assert.equal(inHex(found[`.${id.replace(".", "-")} color`]), inHex(hex), id);
        }
    });
