// Exports, read back by the tools that they are for, against what the palette itself says.
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import test from "node:test";
import swatches from "ase-utils";
import * as csstree from "css-tree";
import * as lightningcss from "lightningcss";
import { build as terrazzo, defineConfig, parse as parseTokens } from "@terrazzo/parser";
import terrazzoCss from "@terrazzo/plugin-css";
import { PNG } from "pngjs";
import * as sass from "sass";
import StyleDictionary from "style-dictionary";
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

/** What Terrazzo and Style Dictionary make of the tokens of `source`, by the name of the file. */
async function tokenFiles(source) {
    const src = exported(source, "tokens").toString();
    const files = {};
    const config = defineConfig({ plugins: [terrazzoCss({ filename: "terrazzo.css" })] }, { cwd: new URL(import.meta.url) });
    const { tokens, sources: parsed } = await parseTokens([{ src, filename: new URL("file:///a.tokens.json") }], { config });
    for (const { filename, contents } of (await terrazzo(tokens, { sources: parsed, config })).outputFiles)
        files[filename] = contents.toString();
    const platform = (transformGroup, destination, format) => ({ transformGroup, files: [{ destination, format }] });
    const dictionary = new StyleDictionary({
        tokens: JSON.parse(src),
        log: { warnings: "error", verbosity: "verbose" },
        platforms: {
            css: platform("css", "style-dictionary.css", "css/variables"),
            android: platform("android", "colors.xml", "android/colors"),
            swift: platform("ios-swift", "Colors.swift", "ios-swift/class.swift"),
        },
    });
    for (const made of Object.values(await dictionary.formatAllPlatforms()).flat()) files[made.destination] = made.output;
    return files;
}
const bytes = (hex) => hex.slice(1).match(/../g).map((pair) => parseInt(pair, 16));
/** How each of those files writes a colour: where, and what. */
const tokenForms = {
    "terrazzo.css": (id, [r, g, b, a = 255], alias) => [id.replace(".", "-"), alias
        ? `: var(--${alias.replace(".", "-")});`
        : `: rgb(${[r, g, b].map((part) => `${+(Math.round((part / 255) * 1e4) / 100).toFixed(2)}%`).join(" ")}${
            a < 255 ? ` / ${+(a / 255).toFixed(4)}` : ""});`],
    "style-dictionary.css": (id, [r, g, b, a = 255]) => [id.replace(".", "-"), a < 255
        ? `: rgba(${r}, ${g}, ${b}, ${+(a / 255).toFixed(3)});`
        : `: #${Buffer.from([r, g, b]).toString("hex")};`],
    "colors.xml": (id, [r, g, b, a = 255]) => [id.replace(/\W/g, "_"), `">#${Buffer.from([a, r, g, b]).toString("hex")}<`],
    "Colors.swift": (id, [r, g, b, a = 255]) => [id.replace(/\W(.)/g, (_, next) => next.toUpperCase()),
        ` = UIColor(red: ${(r / 255).toFixed(3)}, green: ${(g / 255).toFixed(3)}, blue: ${(b / 255).toFixed(3)}, alpha: ${
            +(a / 255).toFixed(3)})`],
};

for (const source of sources)
    test(`tokens of ${source}`, async () => {
        const files = await tokenFiles(source);
        const colors = truth(source);
        let aliases = 0;
        for (const [id, hex] of Object.entries(colors)) {
            const twins = Object.keys(colors).filter((other) => /^(tone|source)/.test(other) && colors[other] === hex).sort();
            const alias = /^(light|dark)/.test(id) ? twins.pop() : undefined;
            aliases += alias ? 1 : 0;
            for (const [file, form] of Object.entries(tokenForms)) {
                const [name, value] = form(id, bytes(hex), alias);
                const line = files[file].split("\n").find((each) => new RegExp(`[- "]${name}[ ":]`).test(each));
                assert.ok(line?.includes(name + value), `${file}, ${id}: ${line} without ${value}`);
            }
        }
        assert.ok(aliases > 0 || source !== "6E56CF", "its light primary is the source");
    });

for (const source of sources)
    test(`ase of ${source}`, () => {
        const listed = JSON.parse(exported(source, "json")).map(({ name, color: { red, green, blue } }) =>
            [name, [red, green, blue].map((part) => Math.round(part * 255))]);
        const { version, groups, colors } = swatches.decode(exported(source, "ase"));
        assert.deepEqual([version, groups, colors.map(({ model }) => model)], ["1.0", [], listed.map(() => "RGB")]);
        assert.deepEqual(colors.map(({ name, color }) => [name, color.map((part) => part * 255)]).map(([name, parts]) =>
            [name, parts.map((part) => +part.toFixed(4))]), listed);
    });

for (const source of sources)
    test(`svg and png of ${source}`, () => {
        const svg = exported(source, "svg");
        const text = svg.toString();
        const pictures = [exported(source, "png"), execFileSync("rsvg-convert", ["-z", "2"], { input: svg })].map((png) =>
            PNG.sync.read(png));
        const boxes = [...text.matchAll(/<rect x="(.+?)" y="(.+?)" width=".+?" height="(.+?)".+? fill="(#\w{6})"( fill-opacity)?/g)];
        for (const [, x, y, height, hex, isClear] of boxes)
            for (const { data, width } of isClear ? [] : pictures) {
                const at = 4 * (Math.round(2 * y + +height) * width + Math.round(2 * x) + 8);
                assert.equal(data.subarray(at, at + 3).toString("hex").toUpperCase(), hex.slice(1), `${x} ${y}`);
            }
        const colors = Object.values(truth(source));
        const shown = [...text.matchAll(/>(#\w+)</g)].map(([, hex]) => hex);
        assert.deepEqual(shown.sort(), colors.sort());
        assert.deepEqual(boxes.length, colors.length + 2 * 2, "a card and a button a theme");
    });
