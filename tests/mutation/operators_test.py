"""The operators of scripts/mutate, each on a piece of text: what it makes of it, and what it leaves."""

import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "scripts"))

from mutation.families import families  # noqa: E402
from mutation.operators import mutants  # noqa: E402


def changes(operator, text, known=()):
    """The texts that the operator makes, in the order of their places."""
    found = sorted(mutant for mutant in mutants(text, known) if mutant[2] == operator)
    return [text[:start] + new + text[end:] for start, end, _, new in found]


def body(text):
    return "int f(int a) {\n  " + text + "\n}\n"


class Operators(unittest.TestCase):
    def expect(self, operator, text, *expected, known=()):
        with self.subTest(operator=operator, text=text):
            self.assertEqual(changes(operator, text, known), list(expected))

    def test_swaps(self):
        self.expect("limit", "a < b; c >= d;", "a <= b; c >= d;", "a < b; c > d;")
        self.expect("limit", "std::vector<int> a; b->c; d << e;")
        self.expect("equality", "a == b; c != d;", "a != b; c != d;", "a == b; c == d;")
        self.expect("arithmetic", "a + b; c -= d;", "a - b; c -= d;", "a + b; c += d;")
        self.expect("arithmetic", "const int* a; f(-1);")
        self.expect("logic", "a && b || c", "a || b || c", "a && b && c")
        self.expect("truth", "x = true; y = is_true;", "x = false; y = is_true;")
        self.expect("step", "++a; b--;", "--a; b--;", "++a; b++;")
        self.expect("precision", "float a; to_float(b);", "double a; to_float(b);")
        self.expect("axis", "p.x; q.y; r.xs;", "p.y; q.y; r.xs;", "p.x; q.x; r.xs;")
        self.expect("extreme", "std::min(a, b); c.back();", "std::max(a, b); c.back();", "std::min(a, b); c.front();")

    def test_numbers(self):
        self.expect("number", "a = 3; b = 0; c = 12U;", "a = 4; b = 0; c = 12U;", "a = 3; b = 1; c = 12U;", "a = 3; b = 0; c = 13U;")
        self.expect("number", "a = 2.5F; b = 0.0; c = 1e-3;", "a = 3.0F; b = 0.0; c = 1e-3;", "a = 2.5F; b = 0.1; c = 1e-3;",
                    "a = 2.5F; b = 0.0; c = 0.0012;")
        self.expect("number", "cv::Scalar(255);", "cv::Scalar(254);")  # 256 would be cut to the same colour.
        self.expect("number", "a = 0x31;", "a = 0x32;")
        self.expect("number", "k1; cv::Point2f; CV_8UC1;")

    def test_sizes_that_must_be_odd(self):
        self.expect("odd size", "cv::GaussianBlur(a, b, {3, 5}, 0.0);", "cv::GaussianBlur(a, b, {5, 5}, 0.0);",
                    "cv::GaussianBlur(a, b, {3, 7}, 0.0);")
        self.expect("odd size", "cv::GaussianBlur(a, b, cv::Size(7, 7), 0.65, 0);", "cv::GaussianBlur(a, b, cv::Size(9, 7), 0.65, 0);",
                    "cv::GaussianBlur(a, b, cv::Size(7, 9), 0.65, 0);")
        self.expect("number", "cv::GaussianBlur(a, b, {3, 3}, 0.0);", "cv::GaussianBlur(a, b, {3, 3}, 0.1);")
        self.expect("odd size", "cv::medianBlur(a, b, 5);", "cv::medianBlur(a, b, 7);")
        self.expect("odd size", "cv::adaptiveThreshold(a, b, 255, m, t, 37, 2.5);", "cv::adaptiveThreshold(a, b, 255, m, t, 39, 2.5);")
        self.expect("odd size", "constexpr int kMeanBlock = 37;", "constexpr int kMeanBlock = 39;")
        self.expect("odd size", "constexpr int kEdgeSmoothing = 5;", "constexpr int kEdgeSmoothing = 7;")
        self.expect("odd size", "constexpr int kZernikeSize = 7;", "constexpr int kZernikeSize = 9;")
        self.expect("odd size", "cv::Size(3, 3); constexpr int kMostBlocks = 9;")

    def test_conditions(self):
        self.expect("condition", 'if (is(a, "b")) c();', 'if (!(is(a, "b"))) c();')
        self.expect("condition", "while (a) b();")

    def test_statements(self):
        self.expect("statement", body("a = g(a); h(a); ++a;"), body("; h(a); ++a;"), body("a = g(a); ; ++a;"), body("a = g(a); h(a); ;"))
        self.expect("statement", body("if (a) h(a);"), body("if (a) ;"))
        self.expect("statement", body("const int b = a; return b;"))
        self.expect("statement", body("for (int k = 0; k < a; k = next(k)) g(k);"))
        self.expect("statement", body("values.reserve(3);"))

    def test_returns_that_others_follow(self):
        self.expect("exit", body("if (a) return 1; return 2;"), body("if (a) ; return 2;"))
        self.expect("exit", body("if (a) { b(); return 1; } return 2;"), body("if (a) { b(); ; } return 2;"))
        self.expect("exit", body("for (int b : c) { if (b) return b; } return 2;"), body("for (int b : c) { if (b) ; } return 2;"))
        self.expect("exit", body("if (a) return {1, 2}; g();"), body("if (a) ; g();"))
        self.expect("exit", body("if (a) return g([](int b) { h(b); return b; }); return 2;"), body("if (a) ; return 2;"))
        self.expect("exit", body("switch (a) { case 1: return 2; default: return 3; }"), body("switch (a) { case 1: ; default: return 3; }"))
        self.expect("exit", body("if (a) throw b(); return 2;"), body("if (a) ; return 2;"))
        self.expect("exit", body("for (int b : c) { if (b) continue; d(b); }"), body("for (int b : c) { if (b) ; d(b); }"))
        self.expect("exit", body("for (int b : c) { if (b) break; }"), body("for (int b : c) { if (b) ; }"))

    def test_last_returns_stay(self):
        self.expect("exit", body("return a;"))
        self.expect("exit", body("if (a) return 1; else return 2;"))
        self.expect("exit", body("if (a) { return 1; } else if (b) { return 2; } else { return 3; }"))
        self.expect("exit", body("try { return 1; } catch (const E&) { fail(); }"))
        self.expect("exit", body("for (;;) { g(); if (a) return 1; }"))
        self.expect("exit", body("g([](int b) { return b; });"))
        self.expect("exit", body("g([]() -> bool { return b; });"))
        self.expect("exit", body("if (a) throw b();"))
        self.expect("exit", "[[noreturn]] void f(int a) { throw b(a); }")

    def test_what_functions_without_a_value_leave_early(self):
        self.expect("exit", "void f() { if (a) return; b(); }", "void f() { if (a) ; b(); }")
        self.expect("exit", "void f() { for (;;) { a(); if (b) return; } }", "void f() { for (;;) { a(); if (b) ; } }")
        self.expect("exit", "void f() { if (a) throw b(); }", "void f() { if (a) ; }")
        self.expect("exit", "void f() { if (a) return; }\nint g();")

    def test_texts(self):
        self.expect("text", 'g("abc");', 'g("acc");')
        self.expect("text", 'g("ab %d z");', 'g("ac %d z");')
        self.expect("text", r'g("%s\n");', 'g("%s~");')
        self.expect("text", r'g("\x41Z");', 'g("\\x41A");')  # Z becomes A; the escape stays whole.
        self.expect("text", 'g("");', 'g("~");')
        self.expect("text", "c == 'x' || c == ' ' || c == '~'", "c == 'y' || c == ' ' || c == '~'", "c == 'x' || c == '~' || c == '~'",
                    "c == 'x' || c == ' ' || c == '-'")

    def test_texts_that_stay(self):
        self.expect("text", '#include "a.h"\n// "b"\n/* "c" */\n')
        self.expect("text", 'g("%d");')
        self.expect("text", 'extern "C" int f();')
        self.expect("text", 'static_assert(sizeof(int) == 4, "four");')
        self.expect("text", '[[deprecated("old")]] int f();')

    def test_constants(self):
        known = [["cv::A", "cv::B", "cv::C"], ["kLeft", "kRight"]]
        self.expect("constant", "g(cv::A, cv::C);", "g(cv::B, cv::C);", "g(cv::A, cv::A);", known=known)
        self.expect("constant", "x = Side::kRight;", "x = Side::kLeft;", known=known)
        self.expect("constant", "constexpr int kLeft = 0; enum Side { kLeft, kRight }; kLeftmost; cv::AB;", known=known)

    def test_comments_and_texts_hide_code(self):
        for operator in ("limit", "number", "truth", "condition", "exit", "axis"):
            self.expect(operator, 'g("a < 1 true if (b) return; p.x"); // c < 2 true if (d) return; q.y\n')


class Families(unittest.TestCase):
    def test_of_our_own_sources(self):
        found = families(["enum class Side : int { kLeft, kRight };  // kWrong",
                          "enum Mark { kDot = 0,  ///< Plain.\n kRing = 2 };",
                          "namespace polar_status {\nconstexpr int kFine = 0;\nconstexpr int kBad = 3;\n}\n",
                          "const char* kLeftX = 1;\nconst char* kRightX = 2;\nconst char* kLeftOnly = 3;",
                          "inline constexpr const char* kHalted = \"a\";\ninline constexpr float kHalf = 0.5F;\n"
                          "/// Of the end.\ninline constexpr const char* kEnded = \"b\";\ninline constexpr float kAll = 1.0F;\n"])
        for family in (["Side::kLeft", "Side::kRight"], ["kDot", "kRing"], ["polar_status::kFine", "polar_status::kBad"], ["kLeftX", "kRightX"],
                       ["kHalted", "kEnded"], ["kHalf", "kAll"]):
            self.assertIn(family, found)
        self.assertFalse(any("kLeftOnly" in family or "kWrong" in family for family in found))
        self.assertTrue(all(len(set(family)) == len(family) for family in found))

    def test_of_others_know_each_name_once(self):
        names = [name for family in families([]) for name in family]
        self.assertEqual(len(names), len(set(names)))

    def test_each_has_another_member(self):
        self.assertTrue(all(len(family) > 1 for family in families([])))


if __name__ == "__main__":
    unittest.main()
