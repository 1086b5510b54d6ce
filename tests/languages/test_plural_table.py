"""The table of plural forms, held to counts whose forms are known from the grammar of the languages."""

import unittest

import support  # noqa: F401, it finds the tools
import plural_table


def made(header):
    form_count, rule = plural_table.parse(header)
    table = plural_table.make(form_count, rule)
    return lambda count: table[plural_table.index_of(count)]


class Tables(unittest.TestCase):
    def test_english(self):
        form = made("nplurals=2; plural=(n != 1);")
        self.assertEqual([form(n) for n in (0, 1, 2, 101, 201, 1001)], [1, 0, 1, 1, 1, 1])

    def test_russian(self):
        form = made(
            "nplurals=3; plural=(n%10==1 && n%100!=11 ? 0 : "
            "n%10>=2 && n%10<=4 && (n%100<12 || n%100>14) ? 1 : 2);"
        )
        self.assertEqual(
            [form(n) for n in (1, 2, 5, 11, 12, 21, 22, 111, 121, 1011, 1021, 999_993)],
            [0, 1, 2, 2, 2, 0, 1, 2, 0, 2, 0, 1],
        )

    def test_arabic(self):
        form = made(
            "nplurals=6; plural=(n==0 ? 0 : n==1 ? 1 : n==2 ? 2 : n%100>=3 && n%100<=10 ? 3 : "
            "n%100>=11 ? 4 : 5);"
        )
        self.assertEqual(
            [form(n) for n in (0, 1, 2, 3, 11, 100, 101, 102, 103, 200, 203)],
            [0, 1, 2, 3, 4, 5, 5, 5, 3, 5, 3],
        )

    def test_one_form(self):
        form = made("nplurals=1; plural=0;")
        self.assertEqual([form(n) for n in (0, 1, 5)], [0, 0, 0])

    def test_a_rule_that_the_table_cannot_tell_is_refused(self):
        for rule in ("n == 300", "n % 1000 == 1", "n >= 150000", "n != 0 && n % 1000000 == 0"):
            with self.assertRaisesRegex(ValueError, "repeat every 100 from 200 on", msg=rule):
                made(f"nplurals=2; plural=({rule});")

    def test_a_form_beyond_nplurals_is_refused(self):
        with self.assertRaisesRegex(ValueError, "form 2, but nplurals is 2"):
            made("nplurals=2; plural=(n == 1 ? 0 : 2);")

    def test_a_rule_that_is_no_rule_is_refused(self):
        for header in ("", "nplurals=2", "nplurals=2; plural=;", "nplurals=2; plural=n !;", "two"):
            with self.assertRaises(ValueError, msg=header):
                made(header)

    def test_a_not_without_brackets_behind_a_comparison_is_refused_with_the_way_to_write_it(self):
        with self.assertRaisesRegex(ValueError, r"the plural rule can't be read: write each ! with brackets"):
            made("nplurals=2; plural=(n != !n);")
        form = made("nplurals=2; plural=(n != (!n));")
        self.assertEqual([form(n) for n in (0, 1, 2)], [1, 1, 1])


if __name__ == "__main__":
    unittest.main()
