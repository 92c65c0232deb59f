"""Calls tintwell-cli as scripts and people do, and looks at exit codes, both streams and the files that change."""

import fcntl
import json
import os
import pathlib
import pty
import re
import resource
import select
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import termios
import threading
import unittest

PROGRAM, MANUAL = sys.argv[1:3]
del sys.argv[1:3]

COMMANDS = ("palette", "export", "name", "contrast", "save", "list", "delete", "use", "install", "lists",
            "autostart", "help")
FORM = "is not a color; write RRGGBB, #RGB, rgb(), hsl(), oklch() or a CSS name"


class Case(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="command-line-")
        self.addCleanup(folder.cleanup)
        self.home = folder.name
        self.library = os.path.join(self.home, ".local/share/Tintwell/saved-palettes.json")
        self.environment = {"HOME": self.home, "TERM": "xterm-256color", "COLORTERM": "truecolor", "LC_ALL": "de_DE.UTF-8",
                            "LSAN_OPTIONS": os.environ.get("LSAN_OPTIONS", "")}

    def start(self, *arguments, **options):
        options.setdefault("stdin", subprocess.DEVNULL)
        return subprocess.Popen([PROGRAM, *arguments], env=self.environment, cwd=self.home, stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE, **options)

    def call(self, *arguments, text=None, **options):
        """Exit code, standard output and standard error of one call."""
        process = self.start(*arguments, stdin=subprocess.DEVNULL if text is None else subprocess.PIPE, **options)
        output, error = process.communicate(text, timeout=60)
        return process.returncode, output.decode(), error.decode()

    def done(self, *arguments, text=None):
        code, output, error = self.call(*arguments, text=text)
        self.assertEqual((code, error), (0, ""), arguments)
        return output

    def fails(self, code, message, *arguments, text=None):
        result = self.call(*arguments, text=text)
        self.assertEqual(result, (code, "", f"tintwell-cli: {message}\n"), arguments)


class Colors(Case):
    def test_texts_that_are_colors(self):
        for words in (("#6e56cf",), ("-6E56CF",), ("--violet: rgb(110 86 207);",), ("--", "-6E56CF")):
            self.assertEqual(self.done("name", *words), "Violet\n")

    def test_texts_that_are_none(self):
        for text, quoted in (("", ""), (b"\xff\x1b[31m", "��[31m"), ("save", "save")):
            for words in (("name",), ("palette",), ("export",), ("save",), ("install",), ("contrast", "FFFFFF")):
                self.fails(2, f'"{quoted}" {FORM}', *words, text)
        self.assertEqual(os.listdir(self.home), [])

    def test_colors_from_standard_input(self):
        text = b"# a comment\n\n  #6e56cf\r\n#\n"
        for words in (("name",), ("export",), ("palette",), ("contrast", "white")):
            self.assertEqual(self.done(*words, "-", text=text), self.done(*words, "6E56CF"))
        self.assertEqual(self.done("contrast", "-", "-", text=b"#777\nwhite"), self.done("contrast", "#777", "white"))
        self.assertRegex(self.done("save", "-", text=text), r"\ASaved Violet · #6E56CF · [0-9A-F-]{36}\n\Z")
        self.fails(2, "standard input holds 0 colors instead of 1 color", "name", "-", text=b"#\n")
        self.fails(2, "standard input holds 1 color instead of 2 colors", "contrast", "-", "-", text=b"red")
        self.fails(2, f'"rot" {FORM}', "name", "-", text=b"rot\n")

    def test_name_and_contrast(self):
        self.assertEqual(self.done("name", "FAFAFA"), "Near White\n")
        self.assertEqual(self.done("contrast", "777777", "FFFFFF"),
                         "4.47:1\nAA   large text, UI components\nAAA  not reached\n")

    def test_palette_forms_agree(self):
        line = self.done("palette", "6E56CF", "--format=json-lines")
        self.assertEqual(json.loads(self.done("palette", "6E56CF", "--format", "json")), json.loads(line))
        self.assertEqual(line.count("\n"), 1)
        self.assertEqual(self.done("palette"), self.done("palette", "#6E56CF", "--format", "text"))

    def test_export(self):
        colors = json.loads(self.done("export", "6E56CF80"))
        self.assertEqual(colors, json.loads(self.done("export", "6E56CF80", "--format", "json")))
        self.assertEqual(colors[0]["name"], "Source — Violet")
        self.assertAlmostEqual(colors[0]["color"]["alpha"], 128 / 255, places=12)
        gimp = self.done("export", "6E56CF", "--format", "gpl")
        self.assertRegex(gimp, r"\AGIMP Palette\n")
        self.assertEqual(len(re.findall(r"^ *\d", gimp, re.MULTILINE)), len(colors))

    def test_export_to_a_file(self):
        formats = [line.split()[:2] for line in self.done("export", "--list").splitlines()]
        self.assertEqual(formats[0], ["json", ".json"])
        for word, ending in formats:
            name = "My theme" + ending
            self.assertEqual(self.done("export", "6E56CF", "--out", name), f"Exported {name}\n")
            process = self.start("export", "6E56CF", "-f", word)
            self.assertEqual(pathlib.Path(self.home, name).read_bytes(), process.communicate(timeout=60)[0], word)
        kept = pathlib.Path(self.home, "kept.css")
        kept.write_text("old", encoding="ascii")
        for size in range(0, 2000, 500):
            def limit(size=size):
                resource.setrlimit(resource.RLIMIT_FSIZE, (size, size))
            code, output, error = self.call("export", "6E56CF", "-o", "kept.css", preexec_fn=limit)
            self.assertEqual((code, output, kept.read_text(encoding="ascii")), (1, "", "old"))
            self.assertRegex(error, r"\Atintwell-cli: Export failed: [^\n]+\n\Z")
        self.assertEqual(len(os.listdir(self.home)), len(formats) + 1)
        self.fails(1, "Export failed: a.css could not be written: its folder is missing", "export", "red", "-o", "no/a.css")


class Usage(Case):
    def test_help_and_version_are_everywhere(self):
        for words in ((), *((command,) for command in COMMANDS[:-1])):
            with self.subTest(words):
                text = self.done(*words, "--help")
                self.assertIn(" ".join(("Usage: tintwell-cli", *words)), text)
                self.assertIn("\nExamples:\n  tintwell-cli " + " ".join(words), text)
                self.assertEqual(self.done("help", *words), text)
                self.assertLessEqual(max(map(len, text.splitlines())), 80)
                self.assertRegex(self.done(*words, "-V"), r"^tintwell-cli \d+\.\d+\.\d+\n$")
        self.assertEqual(self.done(), self.done("-h"))

    def test_what_was_meant(self):
        for words, meant in (("palete", "palette"), ("lsit", "list"), ("#abc", "palette '#abc'")):
            self.fails(2, f'"{words}" is not a command; did you mean {meant}?', words)
        self.fails(2, '"--fromat" is not an option here; did you mean --format?', "palette", "--fromat", "json")
        self.fails(2, '"paint" is not a command (see tintwell-cli --help)', "help", "paint")

    def test_manual_and_help_name_the_same(self):
        with open(MANUAL, encoding="utf-8") as file:
            manual = file.read().replace("\\-", "-")
        for command in COMMANDS:
            self.assertIn(f"tintwell-cli {command}", manual)
            for option in re.findall(r"--[a-z]+", self.done(command, "--help")):
                self.assertIn(option, manual, command)

    def test_shells_complete_what_the_help_names(self):
        folder = os.path.join(os.path.dirname(MANUAL), "completions")
        script = 'source "$0"; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _tintwell_cli "$1"; printf "%s\n" "${COMPREPLY[@]}"'

        def completed(*words):
            command = ["bash", "-c", script, os.path.join(folder, "tintwell-cli.bash"), PROGRAM, *words]
            return subprocess.run(command, env={**os.environ, **self.environment}, stdout=subprocess.PIPE, check=True,
                                  timeout=60).stdout.decode().split()

        self.assertEqual(completed(""), list(COMMANDS))
        others = [pathlib.Path(folder, name).read_text(encoding="utf-8") for name in ("_tintwell-cli", "tintwell-cli.fish")]
        for command in COMMANDS[:-1]:
            options = self.done(command, "--help").split("Examples:")[0]
            self.assertEqual(set(completed(command, "-")), set(re.findall(r"--[a-z]+", options)), command)
            words = re.findall(r"(--[a-z]+) [A-Z]+ .*: (.*) \(default", options)
            self.assertEqual([" ".join(completed(command, option, "")) for option, _ in words],
                             [choices.replace(",", "") for _, choices in words])
            for text in others:
                self.assertRegex(text, rf"'{command}:")
                for _, choices in words:
                    self.assertIn(choices.replace(",", ""), text)
        ids = [self.done("save", color).split()[-1] for color in ("6E56CF", "red")]
        self.assertEqual(completed("delete", ""), ids[::-1])
        self.assertEqual(completed("install", "--id", ids[0][:8].lower()), ids[:1])

    def test_misuse_is_one_line_and_does_nothing(self):
        for words in (("paint",), ("palette", "--wide"), ("name",), ("palette", "-6E56C"), ("palette", "--jobs", "0"), ("list", "--library", "."), ("list", "--library", "new/"),
                      ("export", "6E56CF", "--format", "xml"), ("export",), ("export", "red", "-o", "a.txt"), ("export", "red", "-o", "a/"),
                      ("export", "red", "--colors", "hex"),
                      ("install",), ("install", "6E56CF", "--id", "A"), ("name", "6E56CF", "--library", "x"),
                      ("list", "--library", ""), ("name", "6E56CF", "\x1b[2J"), (b"\xff",)):
            code, output, error = self.call(*words)
            self.assertEqual((code, output), (2, ""), words)
            self.assertRegex(error, r"\Atintwell-cli: [^\n\x1b]+\n\Z")
        for words in (("list", "--format"), ("list", "--format", "json", "--format", "json")):
            self.fails(2, "--format takes exactly one value (see tintwell-cli --help)", *words)
        self.assertEqual(os.listdir(self.home), [])


class Output(Case):
    def test_a_full_disk_is_told(self):
        for words, text in ((("palette",), b""), (("--help",), b""), (("palette", "--format", "json-lines", "-"), b"6E56CF\n")):
            with self.subTest(words), open("/dev/full", "wb") as full:
                ended = subprocess.run([PROGRAM, *words], env=self.environment, input=text, stdout=full, stderr=subprocess.PIPE,
                                       check=False, timeout=60)
                self.assertEqual(ended.returncode, 1)
                self.assertRegex(ended.stderr.decode(), r"\Atintwell-cli: standard output cannot be written: [^\n]+\n\Z")

    def test_a_file_that_may_not_grow_is_told_and_nothing_is_left(self):
        def limit():
            resource.setrlimit(resource.RLIMIT_FSIZE, (4096, 4096))
        code, output, error = self.call("save", "6E56CF", preexec_fn=limit)
        self.assertEqual((code, output), (1, ""))
        self.assertRegex(error, r"\Atintwell-cli: Save failed: [^\n]+\n\Z")
        self.assertEqual([name for name in os.listdir(os.path.dirname(self.library)) if "lock" not in name], [])

    def test_a_closed_output_is_told_and_harms_no_file(self):
        ended = subprocess.run(["sh", "-c", 'exec "$0" save 6E56CF >&-', PROGRAM], env=self.environment, stderr=subprocess.PIPE,
                               check=False, timeout=60)
        self.assertEqual(ended.returncode, 1)
        self.assertIn(b"standard output cannot be written", ended.stderr)
        self.assertEqual(len(json.loads(self.done("list", "--format", "json"))), 1)

    def test_a_reader_that_goes_ends_it_quietly(self):
        for ignored in (False, True):
            with self.subTest(sigpipe_ignored=ignored):
                stream = self.start("palette", "--format", "json-lines", "-", stdin=subprocess.PIPE, restore_signals=not ignored)
                stream.stdout.close()
                try:
                    stream.stdin.write(b"6E56CF\n" * 5000)
                    stream.stdin.close()
                except BrokenPipeError:
                    pass
                self.assertEqual(stream.stderr.read(), b"")
                self.assertEqual(stream.wait(60), 1 if ignored else -signal.SIGPIPE)
                stream.stderr.close()

    def on_terminal(self, *words, columns=80, **environment):
        # A read that meets the last writer's close can miss what was written just before it. So this side keeps the
        # terminal open, and writes an end mark once the program is gone.
        control, terminal = pty.openpty()
        fcntl.ioctl(terminal, termios.TIOCSWINSZ, struct.pack("HHHH", 24, columns, 0, 0))
        process = subprocess.Popen([PROGRAM, *words], env={**self.environment, **environment}, stdout=terminal,
                                   stdin=subprocess.DEVNULL)
        end = threading.Thread(target=lambda: (process.wait(), os.write(terminal, b"\0")))
        end.start()
        shown = b""
        while not shown.endswith(b"\0"):
            shown += os.read(control, 65536)
        end.join()
        os.close(terminal)
        os.close(control)
        self.assertEqual(process.returncode, 0)
        return shown[:-1].decode().replace("\r\n", "\n")

    def test_terminals_get_blocks(self):
        shown = self.on_terminal("palette", "6E56CF", columns=100)
        self.assertIn("\x1b[48;2;110;86;207m", shown)
        self.assertEqual(max(len(re.sub(r"\x1b\[[0-9;]*m", "", line)) for line in shown.splitlines()), 98)
        plain = self.done("palette", "6E56CF")
        for environment in ({"NO_COLOR": "1"}, {"TERM": "dumb"}, {"STY": "1.pts-0", "TERM": "screen"}):
            self.assertEqual(self.on_terminal("palette", "6E56CF", **environment), plain)
        self.assertEqual(self.on_terminal("palette", "6E56CF", "--color", "never"), plain)
        self.assertIn("\x1b[48;5;62m", self.on_terminal("palette", "6E56CF", COLORTERM=""))
        self.environment["CLICOLOR_FORCE"] = "1"
        self.assertEqual(self.done("palette", "6E56CF"), self.on_terminal("--color", "always", "palette", "6E56CF"))
        del self.environment["CLICOLOR_FORCE"]
        self.assertNotIn("\x1b", plain)
        self.done("save", "6E56CF")
        self.assertIn("\x1b[48;2;110;86;207m", self.on_terminal("list"))
        self.assertNotIn("\x1b", self.done("list"))


class Stream(Case):
    WORDS = ("palette", "--format", "json-lines", "-")

    def test_lines_in_palettes_out(self):
        colors = ["6E56CF", "#0A0A0D", "F2C14E80"]
        expected = "".join(self.done("palette", color, "--format", "json-lines") for color in colors)
        for text in ("\n".join(colors), "\r\n".join(colors) + "\r\n", "\ufeff" + "\n".join(colors) + "\n"):
            self.assertEqual(self.done(*self.WORDS, text=text.encode()), expected)
        self.assertEqual(self.done(*self.WORDS, text=b""), "")

    def test_bad_lines_are_named_and_the_rest_is_done(self):
        text = b"6E56CF\n\nrot\n# rgb\n" + b"#" * 70000 + b"6E56CF\n\xff\x1b\x00\n" + b"#" * 65529 + b"6E56CF\n#FF"
        code, output, error = self.call(*self.WORDS, text=text)
        self.assertEqual(code, 1)
        self.assertEqual(output, self.done("palette", "--format", "json-lines") * 2)
        self.assertEqual(error.splitlines(), [
            f'tintwell-cli: line 3: "rot" {FORM}', "tintwell-cli: line 5: longer than 65535 bytes",
            f'tintwell-cli: line 6: "���" {FORM}', f'tintwell-cli: line 8: "#FF" {FORM}'])

    def test_any_number_of_threads_keeps_the_order(self):
        lines = [f"{number * 977 % (1 << 24):06X}" if number % 50 else "none" for number in range(2000)]
        results = [self.call(*self.WORDS, "--jobs", jobs, text="\n".join(lines).encode()) for jobs in ("1", "2", "7")]
        self.assertEqual(results[0][1].count("\n"), 1960)
        self.assertEqual(len(results[0][2].splitlines()), 40)
        self.assertEqual(results, [results[0]] * 3)

    def test_each_line_is_answered_while_the_input_stays_open(self):
        stream = self.start(*self.WORDS, stdin=subprocess.PIPE, bufsize=0)
        answers = b""
        for line in (b"6E56CF\n", b"0A0A0D\n6E5", b"6CF\n"):
            stream.stdin.write(line)
            expected = answers.count(b"\n") + 1
            while answers.count(b"\n") < expected:
                self.assertTrue(select.select([stream.stdout], [], [], 60)[0])
                answers += os.read(stream.stdout.fileno(), 65536)
        self.assertEqual(stream.communicate(timeout=60), (b"", b""))
        self.assertEqual(stream.returncode, 0)

    def test_an_input_that_cannot_be_read_is_told(self):
        folder = os.open(self.home, os.O_RDONLY)
        self.addCleanup(os.close, folder)
        stream = self.start(*self.WORDS, stdin=folder)
        output, error = stream.communicate(timeout=60)
        self.assertEqual((stream.returncode, output), (1, b""))
        self.assertRegex(error.decode(), r"\Atintwell-cli: standard input cannot be read: [^\n]+\n\Z")

    @unittest.skipIf("TINTWELL_SANITIZED" in os.environ, "sanitizers keep freed memory")
    def test_memory_does_not_grow_with_the_input(self):
        peaks = []
        for lines in (500, 20000):
            source = os.path.join(self.home, "colors")
            with open(source, "wb") as file:
                file.write(b"6E56CF\n" * lines)
            with open(source, "rb") as file:
                process = subprocess.Popen([PROGRAM, *self.WORDS], env=self.environment, stdin=file, stdout=subprocess.DEVNULL)
                _, status, usage = os.wait4(process.pid, 0)
                process.returncode = os.waitstatus_to_exitcode(status)
            self.assertEqual(process.returncode, 0)
            peaks.append(usage.ru_maxrss)
        self.assertLess(peaks[1], peaks[0] + 1024, "KiB")


class Library(Case):
    def saved(self, *options):
        return json.loads(self.done("list", "--format", "json", *options))

    def test_save_list_use_and_delete(self):
        self.assertEqual(self.done("list"), "")
        ids = [self.done("save", color).split()[-1] for color in ("6E56CF", "F2C14E80")]
        with open(self.library, encoding="utf-8") as file:
            content = file.read()
        self.assertEqual(self.done("list", "--format", "json"), content)
        palettes = json.loads(content)
        self.assertEqual([palette["id"] for palette in palettes], ids[::-1])
        self.assertEqual(palettes[0]["name"], "Pale Gold")
        self.assertEqual(palettes[1]["colors"], json.loads(self.done("export", "6E56CF")))
        self.assertRegex(self.done("list"), rf"\A{ids[1]}  .+\n{ids[0]}  .+\n\Z")
        for words in ((), ("--format", "json"), ("--format", "json-lines")):
            self.assertEqual(self.done("use", ids[1].lower(), *words), self.done("palette", "F2C14E80", *words))
        self.assertEqual(self.done("delete", ids[0][:35]), f"Deleted Violet · #6E56CF · {ids[0]}\n")
        self.assertEqual([palette["id"] for palette in self.saved()], [ids[1]])

    def test_ids_that_name_nothing_or_too_much(self):
        self.fails(1, 'No saved palette has an id that begins with "ABCD"', "delete", "ABCD")
        entry = json.loads(self.done("save", "6E56CF", "--format", "json"))
        self.assertEqual([entry], self.saved())
        twins = [dict(entry, id=f"ABCD{entry['id'][4:-1]}{digit}") for digit in "12"]
        with open(self.library, "w", encoding="utf-8") as file:
            json.dump(twins, file)
        for words in (("delete", "abcd"), ("use", "aBcD"), ("install", "--id", "ABCD")):
            self.fails(1, f'2 saved palettes have an id that begins with "{words[-1]}"; write more of it', *words)
        for words in (("delete", ""), ("use", "ABC"), ("install", "-i", "ABC")):
            self.fails(2, "an id needs at least its first four characters", *words)
        self.assertEqual(self.saved(), twins)

    def test_names_cannot_steer_the_terminal(self):
        self.done("save", "6E56CF")
        entry = dict(self.saved()[0], name="\x1b]0;owned\x07\x7f\x9b31m\u202e")
        with open(self.library, "w", encoding="utf-8") as file:
            json.dump([entry], file, ensure_ascii=False)
        for words in (("list", "--format", "json"), ("delete", entry["id"])):
            self.assertNotRegex(self.done(*words), "[\x00-\x09\x0b-\x1f\x7f-\x9f]")

    def test_a_broken_library_is_left_alone(self):
        os.makedirs(os.path.dirname(self.library))
        with open(self.library, "w", encoding="utf-8") as file:
            file.write("[{]")
        for words in (("list",), ("save", "6E56CF"), ("delete", "ABCD"), ("use", "ABCD"), ("install", "--id", "ABCD")):
            code, output, error = self.call(*words)
            self.assertEqual((code, output), (1, ""), words)
            self.assertRegex(error, rf"\Atintwell-cli: Saved palettes could not be loaded from {self.library}: [^\n]+;"
                             r" mend that file, or move it away to begin a new library\n\Z")
        with open(self.library, encoding="utf-8") as file:
            self.assertEqual(file.read(), "[{]")

    def test_another_library(self):
        for words in (("list",), ("delete", "ABCD"), ("use", "ABCD"), ("install", "--id", "ABCD")):
            self.fails(1, f"there is no library {self.home}/mine.json", *words, "--library", "mine.json")
        for words in (("save", "6E56CF", "--library", "mine.json"), ("--library", "mine.json", "save", "0A0A0D")):
            self.done(*words)
        self.assertEqual(len(self.saved("--library", os.path.join(self.home, "mine.json"))), 2)
        self.assertFalse(os.path.exists(self.library))
        code, output, error = self.call("save", "6E56CF", "--library", "/dev/null/library.json")
        self.assertEqual((code, output), (1, ""))
        self.assertRegex(error, r"\Atintwell-cli: [^\n]+\n\Z")

    def test_writers_at_once_lose_nothing(self):
        writers = [self.start("save", f"{number:06X}") for number in range(1, 9)]
        for writer in writers:
            self.assertEqual(writer.communicate(timeout=60)[1], b"")
        self.assertEqual(sorted(round(palette["source"]["blue"] * 255) for palette in self.saved()), list(range(1, 9)))


class Lists(Case):
    def test_install_and_lists(self):
        self.assertEqual(self.done("lists"), "")
        file = os.path.join(self.home, "Library/Colors/Tintwell.clr")
        for words in (("F2C14E",), ("--id", self.done("save", "6E56CF").split()[-1])):
            self.assertEqual(self.done("install", *words), "Installed Tintwell.clr\n")
        count = len(json.loads(self.done("export", "6E56CF")))
        self.assertEqual(self.done("lists"), f"Tintwell  {count} colors  editable      {file}\n")
        with open(file, "w", encoding="utf-8") as content:
            json.dump({"colors": [], "editable": False, "name": "Tintwell"}, content)
        self.fails(1, "Install failed: The existing Tintwell color list cannot be edited.", "install", "6E56CF")
        self.assertEqual(self.done("lists"), f"Tintwell  0 colors  not editable  {file}\n")


class Autostart(Case):
    def test_entry_comes_and_goes(self):
        file = pathlib.Path(self.home, ".config/autostart/io.github.tintwell.Tintwell.desktop")
        self.assertEqual(self.done("autostart", "status"), "off\n")
        self.done("autostart", "off")
        self.done("autostart", "on")
        self.assertEqual(self.done("autostart", "status"), "on\n")
        self.assertRegex(file.read_text(encoding="utf-8"), r'\nExec=".*tintwell" --background\n')
        if shutil.which("desktop-file-validate"):
            subprocess.run(["desktop-file-validate", file], check=True, timeout=60)
        with open(file, "a", encoding="utf-8") as entry:
            entry.write("Hidden=true\n")
        self.assertEqual(self.done("autostart", "status"), "off\n", "the desktop has turned it off")
        self.done("autostart", "off")
        self.assertFalse(file.exists())
        self.fails(2, '"maybe" is not one of on, off, status', "autostart", "maybe")

    def test_folder_that_cannot_be_made(self):
        pathlib.Path(self.home, ".config").write_text("a file", encoding="utf-8")
        code, output, error = self.call("autostart", "on")
        self.assertEqual((code, output), (1, ""))
        self.assertRegex(error, r"\Atintwell-cli: Autostart failed: [^\n]+\n\Z")


if __name__ == "__main__":
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
    unittest.main()
