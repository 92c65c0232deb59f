"""Reads from the programs and libraries themselves how they are guarded against attacks through memory.

Arguments: the ELF files."""

import subprocess
import sys
import unittest

FILES = sys.argv[1:]
del sys.argv[1:]


def tool(*words):
    return subprocess.run(words, check=True, capture_output=True, text=True).stdout


class HardeningTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.told = {file: tool("readelf", "--wide", "--file-header", "--program-headers", "--dynamic", "--notes", file)
                    for file in FILES}
        cls.wanted = {file: [symbol.split("@")[0] for symbol in tool(
            "nm", "--dynamic", "--undefined-only", "--format=just-symbols", file).split()] for file in FILES}

    def test_loaded_anywhere_and_relocations_read_only_before_the_start(self):
        for told in self.told.values():
            self.assertRegex(told, r"Type:\s+DYN")
            self.assertRegex(told, r"GNU_RELRO")
            self.assertRegex(told, r"\(FLAGS\)\s+BIND_NOW")
            if "INTERP" in told:
                self.assertRegex(told, r"\(FLAGS_1\).*\bPIE\b")

    def test_no_memory_is_both_written_and_run_and_no_library_comes_from_elsewhere(self):
        for told in self.told.values():
            self.assertRegex(told, r"GNU_STACK\s.*\sRW\s")
            self.assertNotRegex(told, r"LOAD\s.*\sRWE\s")
            self.assertNotRegex(told, r"\(RPATH\)|\(RUNPATH\)")

    def test_stacks_are_checked(self):
        for file in FILES:
            self.assertIn("__stack_chk_fail", self.wanted[file], file)

    def test_buffers_are_checked(self):
        # Of one program at least: a call is replaced only where the compiler cannot prove that its buffer is large enough.
        self.assertTrue([name for names in self.wanted.values() for name in names if name.endswith("_chk")])

    def test_returns_and_jumps_are_tracked(self):
        for file in FILES:
            if "X86-64" not in self.told[file]:
                continue
            self.assertRegex(self.told[file], r"x86 feature:.*SHSTK")
            code = tool("objdump", "--disassemble", "--no-show-raw-insn", "--section=.text", file)
            # One landing place for each function that is reached through a pointer.
            self.assertGreater(code.count("endbr64"), 20, file)


if __name__ == "__main__":
    unittest.main()
