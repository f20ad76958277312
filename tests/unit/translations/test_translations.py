# SPDX-License-Identifier: MIT
"""The tables of texts against the sources: none missing, none stale, none unfinished, and every
placeholder there that the code fills in.
"""

import pathlib
import re
import unittest
from xml.etree import ElementTree

ROOT = pathlib.Path(__file__).resolve().parents[3]
LANGUAGES = {"en": 2, "de": 2, "es": 2, "fr": 2, "ja": 1, "zh_CN": 1}  # And their plural forms.
LITERAL = r'"(?:[^"\\\n]|\\.)*"'
LITERALS = re.compile(rf"{LITERAL}(?:\s*{LITERAL})*")
CALL = re.compile(r"(?:\buiText|\buiCount|\btext)\(\s*$")
# Folders whose literals are texts when they read like one; in the others only sentences are, and
# what a call names.
TALKING = re.compile(r"app|autoquit|settings|ui|KeyboardShortcuts|updates/[^/]*$|platform/[^/]*\.h")
SYMBOL = re.compile(r"[a-z]+(_[a-z]+)+( %[@l]+)*|ok")
READS_LIKE_TEXT = re.compile(r"[A-Z]|\d+ [a-z]")
SENTENCE = re.compile(r"[A-Z]\w* [^%\n]*\.")
NO_TEXTS = re.compile(r"Calmora|calmora_fetch|F\d+|Z|AppIcon|MenuBarIcon|(KeyboardShortcuts_|NSMenu).*|\w+\+"
                      r"|DISPLAY|[A-Z]+(_[A-Z]+)+|[^\0]*\n")
SILENT_FOLDER = "autoquit/catalogue/"  # Names of programs, which are the same everywhere.
PLACEHOLDER = re.compile(r"%(?:\d+\$)?(?:@|lld)|%L?\d+|%n")


def keys_of_sources():
    """The keys that the sources use."""
    keys = set()
    for file in (ROOT / "src").rglob("*.[ch]*"):
        path = file.relative_to(ROOT / "src").as_posix()
        if path.startswith(SILENT_FOLDER):
            continue
        source = re.sub(r"//[^\n]*|#include[^\n]*", "", file.read_text())
        for match in LITERALS.finditer(source):
            text = "".join(part[1:-1] for part in re.findall(LITERAL, match[0]))
            text = text.replace(r"\"", '"').replace(r"\n", "\n")
            if CALL.search(source, 0, match.start()) or SENTENCE.fullmatch(text) or (
                    TALKING.match(path) and not NO_TEXTS.fullmatch(text)
                    and (READS_LIKE_TEXT.match(text) or SYMBOL.fullmatch(text))):
                keys.add(text)
    return keys


def counted_keys():
    """The keys that the views fill with a number of things."""
    return {key for file in (ROOT / "src").rglob("*.cpp")
            for key in re.findall(r'\buiCount\(\s*"([^"]+)"', file.read_text())}


def table(language):
    """Key → (state, forms) of one table."""
    root = ElementTree.parse(ROOT / f"resources/translations/calmora_{language}.ts").getroot()
    assert root.get("language") == language
    rows = {}
    for message in root.iter("message"):
        translation = message.find("translation")
        forms = [form.text or "" for form in translation.iter("numerusform")]
        key = message.findtext("source")
        assert key not in rows, f"{language}: {key} twice"
        rows[key] = (translation.get("type"), forms or [translation.text or ""],
                     message.get("numerus") == "yes")
    return rows


class Translations(unittest.TestCase):
    def test_tables(self):
        keys = keys_of_sources()
        self.assertGreater(len(keys), 150)
        symbolic = set(filter(SYMBOL.fullmatch, keys))
        plural = {key for language in LANGUAGES for key, row in table(language).items()
                  if row[2]}
        # Other messages have no text for two of something.
        self.assertEqual(counted_keys() - plural, set(), "counted without plural forms")
        for language, forms in LANGUAGES.items():
            rows = table(language)
            with self.subTest(language):
                self.assertEqual(set(rows) - keys, set(), "stale")
                # English says what its key says, but for symbols.
                self.assertEqual((symbolic if language == "en" else keys) - set(rows), set())
            for key, (state, texts, is_plural) in rows.items():
                with self.subTest(f"{language}: {key}"):
                    self.assertIsNone(state)
                    self.assertTrue(all(text.strip() for text in texts))
                    if language != "en":
                        self.assertEqual(is_plural, key in plural)
                    self.assertEqual(len(texts), forms if is_plural else 1)
                    # A symbol may keep silent about what its text takes.
                    wanted = PLACEHOLDER.findall(key) or PLACEHOLDER.findall(
                        table("en").get(key, (None, [key]))[1][0])
                    for text in texts:
                        self.assertEqual(sorted(PLACEHOLDER.findall(text)), sorted(wanted))


if __name__ == "__main__":
    unittest.main()
