// SPDX-License-Identifier: Apache-2.0
// What each cleaner makes of a text.
#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "engine/lists/QFCleanerLibrary.h"

namespace qf {
namespace {

struct Example {
  std::string token;
  std::string before;
  std::string after;
};

const std::vector<Example>& examples() {
  static const std::vector<Example> table = {
      // The all-round clean-up
      {"#SCRUB", "This  text   came\r\nout ,  with   “odd” spacing .  \r\n\r\n\r\n\r\nEnd\r\n",
       "This text came\nout, with “odd” spacing.\n\nEnd\n"},
      {"#SCRUB", "\n\n  • zero\u200Bwidth\u00A0and soft\u00ADhyphen\uFEFF\n\n",
       "  • zerowidth and softhyphen\n"},
      {"#SCRUB", "oﬃce ( here ) [ ] -x .5 ... wait", "office (here) [ ] -x .5 ... wait"},
      {"#SCRUB", "می\u200Cخواهم 👩\u200D💻 a\u200Db", "می\u200Cخواهم 👩\u200D💻 ab"},
      {"#SCRUB", "Bonjour ! « oui » : \u00A0? et « non\u00A0»\u202F!",
       "Bonjour ! « oui » : \u00A0? et « non\u00A0»\u202F!"},
      {"#SCRUB", "echo :)  ;)\n-- \nMe", "echo :) ;)\n-- \nMe"},
      {"#SCRUB", "name    age\nBob       7\nAlice    12\n\nSome  prose\nand  this",
       "name    age\nBob       7\nAlice    12\n\nSome prose\nand this"},
      {"#SCRUB", "a\tb\n1\t2\n\nx\ty\n", "a\tb\n1\t2\n\nx y\n"},
      {"#PLAIN-TEXT", " as it is\r\n", " as it is\r\n"},
      // White space
      {"#TRIM", "\n\t a b \r\n\n", "a b"},
      {"#TRIM-LINES", "  a \r\n\tb\t", "a\r\nb"},
      {"#TRIM-LINE-ENDS", "  a \n\tb\u00A0\n", "  a\n\tb\n"},
      {"#COLLAPSE-SPACES", "  a \t b\u3000c\n", "  a b c\n"},
      {"#PLAIN-SPACES", "a\u00A0b\u202Fc\u3000d\te", "a b c d\te"},
      {"#REMOVE-SPACES", " a\tb \r\n c\u2003", "abc"},
      {"#REMOVE-INVISIBLE", "\uFEFFa\u200Bb\u00ADc\u2060d", "abcd"},
      {"#TABS-TO-SPACES", "\ta\tb\nabcd\tx", "    a   b\nabcd    x"},
      {"#SPACES-TO-TABS", "        a    b\n     c", "\t\ta    b\n\t c"},
      {"#REMOVE-BLANK-LINES", "a\n\n \nb", "a\nb"},
      {"#COLLAPSE-BLANK-LINES", "a\n\n \n\nb\n\nc", "a\n\nb\n\nc"},
      {"#FINAL-LINE-END", "a\nb", "a\nb\n"},
      {"#FINAL-LINE-END", "a\r\n\r\n\r\n", "a\r\n"},
      {"#LINE-ENDS-UNIX", "a\r\nb\rc\nd\u2028e", "a\nb\nc\nd\ne"},
      {"#LINE-ENDS-WINDOWS", "a\r\nb\rc\n", "a\r\nb\r\nc\r\n"},
      // Lines
      {"#UNWRAP", "One two\nthree.\n\n- item one\n  goes on\n- item two\n\nLast\nparagraph\n",
       "One two three.\n\n- item one goes on\n- item two\n\nLast paragraph\n"},
      {"#UNWRAP", "> quoted\n> stays\nmy\nanswer\n", "> quoted\n> stays\nmy answer\n"},
      {"#UNWRAP", "# Head\ntext\nmore\n    code\n    code\n1. one\n2. two",
       "# Head\ntext more\n    code\n    code\n1. one\n2. two"},
      {"#UNWRAP", "well-\nknown\n\n日本\n語", "well-known\n\n日本語"},
      {"#UNWRAP", "An exam-\nple of self-\nmade pre-\nand post-war UTF-\n8 words in Baden-\nBaden",
       "An example of self-made pre- and post-war UTF-8 words in Baden-Baden"},
      {"#UNWRAP", "re-\nsign or re-sign, co-\nop or coop", "re-sign or re-sign, coop or coop"},
      {"#UNWRAP",
       "See\n[1] here.\n\n[1] A book,\n1999.\n[2] Another\n\nend of it\n12\nPage 12 of 30\n",
       "See\n[1] here.\n\n[1] A book, 1999.\n[2] Another\n\nend of it\n12\nPage 12 of 30\n"},
      {"#UNWRAP", "From: a\nTo: b\n\n```\nx\ny\n```\nSee\n[7] there",
       "From: a\nTo: b\n\n```\nx\ny\n```\nSee [7] there"},
      {"#WRAP-72",
       "aaaaaaaaa bbbbbbbbb ccccccccc ddddddddd eeeeeeeee fffffffff ggggggggg hhhhhhhhh",
       "aaaaaaaaa bbbbbbbbb ccccccccc ddddddddd eeeeeeeee fffffffff ggggggggg\nhhhhhhhhh"},
      {"#WRAP-80",
       "- aaaaaaaaa bbbbbbbbb ccccccccc ddddddddd eeeeeeeee fffffffff ggggggggg hhhhhhhhh\r\n",
       "- aaaaaaaaa bbbbbbbbb ccccccccc ddddddddd eeeeeeeee fffffffff ggggggggg\r\n"
       "  hhhhhhhhh\r\n"},
      {"#SORT-LINES", "item 10\nÄpfel\nitem 9\nzoo\napple\n",
       "Äpfel\napple\nitem 9\nitem 10\nzoo\n"},
      {"#SORT-LINES-DESCENDING", "a\nc\nb", "c\nb\na"},
      {"#UNIQUE-LINES", "b\na\nb\nA\na\n", "b\na\nA\n"},
      {"#REVERSE-LINES", "a\r\nb\r\nc", "c\r\nb\r\na"},
      {"#NUMBER-LINES", "a\n\nb\n", "1. a\n\n2. b\n"},
      {"#REMOVE-LINE-NUMBERS", "1. a\n 2) b\n3\tc\n3.5 miles\n2024", "a\nb\nc\n3.5 miles\n2024"},
      {"#REMOVE-LINE-NUMBERS", "2024 was a year\n7 came\n  9 a\ngoes on\n 10 b",
       "2024 was a year\n7 came\na\ngoes on\nb"},
      {"#JOIN-LINES", " a\n\n b \nc\n", "a b c"},
      {"#JOIN-LINES-COMMAS", "a\nb\nc\n", "a, b, c"},
      {"#COMMAS-TO-LINES", "a, b ,c\n", "a\nb\nc\n"},
      {"#COMMAS-TO-LINES", "\"Smith, John\", x, 5\" a, \"open, y",
       "Smith, John\nx\n5\" a\n\"open\ny"},
      {"#SENTENCES-TO-LINES", "One. Two? “Three!” Four", "One.\nTwo?\n“Three!”\nFour"},
      {"#SENTENCES-TO-LINES",
       "Dr. Fox met J. R. Smith (e.g. No. 5). No. \"Hello!\" he said. Am 3. Mai z.B. Herr. Wohl",
       "Dr. Fox met J. R. Smith (e.g. No. 5).\nNo.\n\"Hello!\" he said.\nAm 3. Mai z.B. "
       "Herr.\nWohl"},
      {"#INDENT", "a\n\n b\n", "    a\n\n     b\n"},
      {"#OUTDENT", "      a\n\tb\n c", "  a\nb\nc"},
      {"#ADD-BULLETS", "a\n  b\n\n- c\n", "- a\n  - b\n\n- c\n"},
      {"#REMOVE-BULLETS", "- a\n  • b\n1. c\nd", "a\n  b\nc\nd"},
      {"#SPACE-PARAGRAPHS", "a\nb\n\nc\n", "a\n\nb\n\nc\n"},
      {"#JOIN-HYPHENATED", "An exam-\nple of self-\nmade pre-\nand post-\n- list co\u00AD\nop",
       "An example\nof self-made\npre-\nand post-\n- list coop\n"},
      {"#REMOVE-COMMON-PREFIX", "// a\n\n// b\n//  c\n", "a\n\nb\n c\n"},
      {"#REMOVE-COMMON-PREFIX", "éa\nèb", "éa\nèb"},
      {"#QUOTED-LIST-SQL", " one\n\nit's\n", "'one', 'it''s'"},
      {"#QUOTED-LIST-CODE", "one\na \"b\"\n", "\"one\", \"a \\\"b\\\"\""},
      {"#WRAP-10", "one two three four", "one two\nthree four"},
      {"#KEEP-LINES:ÄR", "Bär\nb\r\nÄre\n", "Bär\nÄre\n"},
      {"#REMOVE-LINES:b", "a\nBc\nd\n", "a\nd\n"},
      // Mail
      {"#QUOTE", "a\n\n> b\n", "> a\n>\n>> b\n"},
      {"#UNQUOTE", "> a\n>\n>> b\nc", "a\n\n> b\nc"},
      {"#UNQUOTE-ALL", ">> a\n> > b\n c", "a\nb\n c"},
      {"#UNWRAP-QUOTED", "> one\n> two\n>\n>> deep\n>> er\nme\ntoo\n",
       "> one two\n>\n>> deep er\nme too\n"},
      {"#REWRAP-QUOTED",
       "> aaaaaaaaa bbbbbbbbb ccccccccc ddddddddd\n> eeeeeeeee fffffffff ggggggggg hhhhhhhhh\n",
       "> aaaaaaaaa bbbbbbbbb ccccccccc ddddddddd eeeeeeeee fffffffff ggggggggg\n> hhhhhhhhh\n"},
      {"#REMOVE-QUOTED", "Hi\n> a\n>> b\nmine\n", "Hi\nmine\n"},
      {"#REMOVE-QUOTED",
       "On Tue, 3 May 2022, Jo Fox <jo@example.org>\nwrote:\n\n> a\nmine\n"
       "Am Di., 3. Mai 2022 um 10:00 Uhr schrieb Jo:\n> b\nLe mar. 3 mai 2022, Jo a écrit :\n> c\n"
       "El mar, 3 may 2022, Jo escribió:\n> d\nand he wrote:\nnothing\n",
       "mine\nand he wrote:\nnothing\n"},
      {"#REMOVE-SIGNATURE", "Hi\n--\nyes\n-- \nMe\n", "Hi\n--\nyes\n"},
      // Punctuation
      {"#STRAIGHT-QUOTES", "“a” ‘b’ „c“ «d» it’s", "\"a\" 'b' \"c\" \"d\" it's"},
      {"#STRAIGHT-QUOTES", "Read more » Home › it\n\n« oui » »ja« ‹a›",
       "Read more » Home › it\n\n\"oui\" \"ja\" 'a'"},
      {"#CURLY-QUOTES", "\"It's 'so',\" (\"he\") 5'10\" in '99",
       "“It’s ‘so’,” (“he”) 5'10\" in ’99"},
      {"#CURLY-QUOTES-GERMAN", "\"Na 'so' was\"", "„Na ‚so‘ was“"},
      {"#CURLY-QUOTES",
       "rock 'n' roll, 'Tis 'it' <a href=\"x\">\"y\"</a> `a='b'` class=\"z\" f(\"s\")",
       "rock ’n’ roll, ’Tis ‘it’ <a href=\"x\">“y”</a> `a='b'` class=\"z\" f(\"s\")"},
      {"#CURLY-QUOTES", "\"<b>Yes</b>\"\n```\n\"code\"\n```\nchar* s = \"x\";\n<code>\"a\"</code>",
       "“<b>Yes</b>”\n```\n\"code\"\n```\nchar* s = \"x\";\n<code>\"a\"</code>"},
      {"#CURLY-QUOTES-GERMAN", "\"Na 'so' was\"", "„Na ‚so‘ was“"},
      {"#CURLY-QUOTES-FRENCH", "\"Oui\" l'eau", "«\u202FOui\u202F» l’eau"},
      {"#DASHES", "1990--2000---so --option ----", "1990–2000—so --option ----"},
      {"#DASHES",
       "---\ntitle: a -- b\n---\n<!-- x -->\n| a | b |\n| --- | --- |\n`i--` http://e.org/a--b",
       "---\ntitle: a – b\n---\n<!-- x -->\n| a | b |\n| --- | --- |\n`i--` http://e.org/a--b"},
      {"#PLAIN-DASHES", "a–b—c\u2011d−e", "a-b--c-d-e"},
      {"#ELLIPSES", "so... a.....", "so… a....."},
      {"#PLAIN-ELLIPSES", "so…", "so..."},
      {"#ASCII-PUNCTUATION", "“a”—b… • ‘c’\u00A0→", "\"a\"--b... * 'c' ->"},
      {"#PUNCTUATION-SPACING", "a , b ( c ) !\n  .d [ ] e ?", "a, b (c)!\n  .d [ ] e?"},
      {"#SPACE-AFTER-PUNCTUATION",
       "One,two;three!Four.Five 1,000.50 e.g. a.b http://e.org/a,b x@y.Org Bonjour !Oui node.js",
       "One, two; three! Four. Five 1,000.50 e.g. a.b http://e.org/a,b x@y.Org Bonjour !Oui "
       "node.js"},
      {"#COLLAPSE-MARKS", "What?!?!!! no,, wait...", "What?!?! no, wait..."},
      {"#REMOVE-PUNCTUATION", "a, b. “c” (d)!", "a b c d"},
      {"#EXPAND-LIGATURES", "eﬃcient ﬁles", "efficient files"},
      // Letter case
      {"#UPPERCASE", "straße ﬁ é", "STRASSE FI É"},
      {"#LOWERCASE", "ÉTÉ ΣΑΣ", "été σας"},
      {"#TITLECASE", "the lord of the rings: a tale to dream of",
       "The Lord of the Rings: A Tale to Dream Of"},
      {"#TITLECASE", "THE END OF IT\nan iPhone by NASA", "The End of It\nAn iPhone by NASA"},
      {"#CAPITALIZE", "it's a 3rd élan o'neil", "It's A 3rd Élan O'neil"},
      {"#SENTENCECASE", "HELLO WORLD. HOW ARE YOU?\n\nfine", "Hello world. How are you?\n\nFine"},
      {"#SENTENCECASE", "and I think NASA Is. good", "And I think NASA is. Good"},
      {"#SENTENCECASE", "see e.g. page 3, dr. x. then", "See e.g. page 3, dr. x. Then"},
      {"#SWAPCASE", "aBc É", "AbC é"},
      {"#CAMELCASE", "Some long-name here\nHTML_page", "someLongNameHere\nhtmlPage"},
      {"#PASCALCASE", "some longName", "SomeLongName"},
      {"#SNAKECASE", "someLongHTMLName don't", "some_long_html_name_dont"},
      {"#KEBABCASE", "Some Long_Name", "some-long-name"},
      {"#CONSTANTCASE", "someName", "SOME_NAME"},
      {"#SLUG", "Größe & Maß: My  Page!\nIt's 2", "grosse-mass-my-page\nits-2"},
      // Unicode
      {"#NFC", "e\u0301", "é"},
      {"#NFD", "é", "e\u0301"},
      {"#NFKC", "①ﬁＡ", "1fiA"},
      {"#STRIP-ACCENTS", "Čeština øl łódź ά й हिन्दी", "Cestina ol lodz α й हिन्दी"},
      {"#TO-ASCII", "Größe Москва “q”", "Grosse Moskva \"q\""},
      {"#TO-ASCII", "5 € • 20 °C ™ 👍 soft\u00ADhyphen « a » »",
       "5 EUR * 20 degC (TM) softhyphen \"a\" >>"},
      {"#REMOVE-NON-ASCII", "aéb\u00A0c 2–3 “ж”", "aeb c 2-3 \"\""},
      {"#HALF-WIDTH", "ＡＢ１\u3000！", "AB1 !"},
      {"#REMOVE-EMOJI",
       "a👩\u200D👩\u200D👧b👍🏽c🇩🇪d1\uFE0F\u20E3e❤\uFE0Ff© 5 # ☺",
       "abcdef© 5 # ☺"},
      {"#REMOVE-EMOJI", "Hi 👋 there 👍\n😀 you", "Hi there\nyou"},
      {"#REMOVE-CONTROL", std::string("a\0b\x1B[0m\tc\n", 10), "ab[0m\tc\n"},
      {"#REMOVE-FORMAT", "a\u200Eb\u202Ec\uFEFF", "abc"},
      {"#MEND-ENCODING", "Ã©tÃ© â€œquotedâ€\u009D 10â‚¬", "été “quoted” 10€"},
      {"#MEND-ENCODING", "ÃƒÂ© été naïve", "é été naïve"},
      {"#ESCAPE-UNICODE", "aé😀", "a\\u00e9\\ud83d\\ude00"},
      {"#UNESCAPE-UNICODE", "a\\u00e9\\ud83d\\ude00 \\ud83d \\u12 \\n", "aé😀 \\ud83d \\u12 \\n"},
      // The web
      {"#HTML-TO-TEXT",
       "<html><head><title>T</title><style>p{}</style></head><body><h1>Head</h1><p>One "
       "<b>bold</b>\n"
       "  word &amp; <a href='https://e.org/x'>a link</a>.<br>New line<ul><li>one<li>two<ol><li>in"
       "</ol></ul><script>x()</script><blockquote><p>said</p><p>more</p></blockquote></body></"
       "html>",
       "Head\n\nOne bold word & a link (https://e.org/x).\nNew line\n\n- one\n- two\n  1. in\n\n"
       "> said\n>\n> more\n"},
      {"#HTML-TO-TEXT",
       "<table><tr><th>A<th>B</tr><tr><td>1</td><td>2</td></tr></table><pre>a\n  b</pre>"
       "<a href=\"mailto:a@b.org\">a@b.org</a> <a href='#x'>top</a><img src=x alt=Pic>",
       "A\tB\n1\t2\n\na\n  b\n\na@b.org top Pic\n"},
      {"#HTML-TO-MARKDOWN",
       "<h2>Head</h2><p>A <strong>b</strong> <em>i</em> <code>c</code> "
       "<a href=\"http://e.org\">link</a> 2*3</p><ol start=3><li>x</li><li>y</li></ol>",
       "## Head\n\nA **b** *i* `c` [link](http://e.org) 2\\*3\n\n3. x\n4. y\n"},
      {"#HTML-TO-MARKDOWN",
       "<p>t</p><table><tr><th>A</th><th>B|</th></tr><tr><td><b>1</b></td><td>2<br>3</td></tr></"
       "table>z",
       "t\n\n| A | B\\| |\n| --- | --- |\n| **1** | 2 3 |\n\nz\n"},
      {"#HTML-TO-MARKDOWN",
       "<table><tr><td><p>a</p><p>b</p></td></tr><tr><td><table><tr><td>1<td>2</table></table>",
       "a\n\nb\n\n| 1 | 2 |\n| --- | --- |\n"},
      {"#STRIP-TAGS", "a <b>bold</b> &lt;x&gt;<br>y<!-- no --><script>z</script>", "a bold <x>\ny"},
      {"#STRIP-TAGS", "<p>One</p><p>Two</p>", "One\nTwo"},
      {"#STRIP-TAGS", "<ul>\n<li>a\n<li>b</ul><table><tr><td>1<td>2<tr><td>3</table>",
       "\na\nb\n1\t2\n3"},
      {"#TEXT-TO-HTML", "a < b\nsee http://e.org/?a=1&b=2.\n\nnext",
       "<p>a &lt; b<br>\nsee <a "
       "href=\"http://e.org/?a=1&amp;b=2\">http://e.org/?a=1&amp;b=2</a>.</p>\n"
       "<p>next</p>\n"},
      {"#MARKDOWN-TO-TEXT", "# Head\n\nSome *text* with [link](http://e.org)\n\n- a\n- b\n",
       "Head\n\nSome text with link (http://e.org)\n\n- a\n- b\n"},
      {"#MARKDOWN-TO-TEXT",
       "Note[^1] here\n\n- [x] done\n- [ ] open\n\n[^1]: The *note*.\n[^b]: Other\n",
       "Note[^1] here\n\n- [x] done\n- [ ] open\n\n[^1]: The note.\n\n[^b]: Other\n"},
      {"#MARKDOWN-TO-HTML", "a **b**\n", "<p>a <strong>b</strong></p>\n"},
      {"#MARKDOWN-TO-HTML", "a[^1]\n\n[^1]: n\n", "<p>a[^1]</p>\n<p>[^1]: n</p>\n"},
      {"#ENCODE-ENTITIES", "<a href=\"x\">'&'</a>",
       "&lt;a href=&quot;x&quot;&gt;&#39;&amp;&#39;&lt;/a&gt;"},
      {"#DECODE-ENTITIES", "&lt;&eacute;&#8364;&#x20ac;&nope; & &#0; AT&T;",
       "<é€€&nope; & &#0; AT&T;"},
      {"#URL-ENCODE", "a b/é?~", "a%20b%2F%C3%A9%3F~"},
      {"#URL-DECODE", "a%20b%2F%C3%A9+100%", "a b/é+100%"},
      {"#URL-DECODE", "100% sure 50% 5 %zz %4", "100% sure 50% 5 %zz %4"},
      // Extracts
      {"#EXTRACT-URLS",
       "See (https://en.org/a_(b)), www.x.de. and HTTP://Y.org/?q=1&z; https://en.org/a_(b) "
       "ahttp://n",
       "https://en.org/a_(b)\nwww.x.de\nHTTP://Y.org/?q=1&z\n"},
      {"#EXTRACT-MAIL-ADDRESSES", "Me <a.b+c@ex-am.org>, x@y, q@münchen.de. @no a.b+c@ex-am.org",
       "a.b+c@ex-am.org\nq@münchen.de\n"},
      {"#EXTRACT-NUMBERS", "-1,234.5 and x-3, 12:30 v2.", "-1,234.5\n3\n12\n30\n2\n"},
      {"#EXTRACT-NUMBERS",
       "On 3.5.2024, 2024-05-03 and 24 May 2024 call +49 30 901820, (030) 901 820 or 555-123-4567; "
       "7 of 1 2 3",
       "7\n1\n2\n3\n"},
      {"#EXTRACT-PHONE-NUMBERS", "Call +49 30 901820 or +1 212-736-5000. 12345678, 3.5.2024",
       "+49 30 901820\n+1 212-736-5000\n"},
      {"#FORMAT-PHONE-NUMBERS", "Call +4930901820, +1 (212) 7365000 or 12.",
       "Call +49 30 901820, +1 212-736-5000 or 12."},
      {"#DATES-TO-ISO",
       "3 May 2024, May 3rd, 2024, 3. Mai 2024, 3 de mayo de 2024, le 1er août 2024, 03.05.2024, "
       "2024/5/3",
       "2024-05-03, 2024-05-03, 2024-05-03, 2024-05-03, le 2024-08-01, 2024-05-03, 2024-05-03"},
      {"#DATES-TO-ISO", "5/3/2024 31.2.2024 1.2.3.2024 v3.5.2024.1 may 12",
       "5/3/2024 31.2.2024 1.2.3.2024 v3.5.2024.1 may 12"},
      {"#DATES-TO-ISO", "5/3/2024 and 25/3/2024", "2024-03-05 and 2024-03-25"},
      {"#REMOVE-URLS",
       "See https://e.org/a, or [this](https://e.org/b) <http://x.de> (www.y.de) "
       "now.\nhttp://z.de\nend",
       "See, or this now.\nend"},
      {"#REMOVE-TRACKING",
       "Go https://e.org/?utm_source=x&id=7&fbclid=y#top, https://e.org/?gclid=1 https://e.org/?a",
       "Go https://e.org/?id=7#top, https://e.org/ https://e.org/?a"},
      {"#REMOVE-TRACKING",
       "https://youtu.be/x?si=1&t=5 https://open.spotify.com/track/a?si=b "
       "https://x.com/a/status/1?s=2&t=3 "
       "https://e.org/?s=2&t=3 https://www.linkedin.com/in/a?trackingId=b "
       "https://e.org/?spm=1&amp;a=2&amp;utm_source=c&amp;b=3",
       "https://youtu.be/x?t=5 https://open.spotify.com/track/a https://x.com/a/status/1 "
       "https://e.org/?s=2&t=3 https://www.linkedin.com/in/a https://e.org/?a=2&amp;b=3"},
      // Data
      {"#JSON-PRETTY", "{\"b\":1.0,\"a\":[1e5,-0,{}],\"u\":\"\\u00e9 \\\"\", \"e\":[ ]}",
       "{\n  \"b\": 1.0,\n  \"a\": [\n    1e5,\n    -0,\n    {}\n  ],\n  \"u\": \"\\u00e9 \\\"\",\n"
       "  \"e\": []\n}\n"},
      {"#JSON-COMPACT", "[1e999, -0.5E+400, \"1\\\"1e9\", " + std::string(400, '9') + "]",
       "[1e999,-0.5E+400,\"1\\\"1e9\"," + std::string(400, '9') + "]"},
      {"#JSON-COMPACT", "{ \"b\" : 1.0 ,\n \"a\" : [ 1 , 2 ] }\n", "{\"b\":1.0,\"a\":[1,2]}"},
      {"#ESCAPE-STRING", "a\"b\\\n\té/\x01", "a\\\"b\\\\\\n\\té/\\u0001"},
      {"#UNESCAPE-STRING", "a\\\"b\\\\\\n\\u00e9\\x", "a\"b\\\né\\x"},
      {"#BASE64-ENCODE", "Héllo", "SMOpbGxv"},
      {"#BASE64-DECODE", "SMOp\nbGxv Pz8_", "Héllo???"},
      {"#QUOTED-PRINTABLE-ENCODE", "é = \n" + std::string(80, 'a'),
       "=C3=A9 =3D=20\n" + std::string(75, 'a') + "=\naaaaa"},
      {"#QUOTED-PRINTABLE-DECODE", "=C3=a9 =3D=20\nlong =\nline =zz", "é = \nlong line =zz"},
      {"#CSV-TO-TSV", "a,\"b, \"\"c\"\"\",d\r\n1;2,\"x\ny\",\r\n", "a\tb, \"c\"\td\n1;2\tx y\t\n"},
      {"#CSV-TO-TSV", "a;b,c;d\n1;2;3", "a\tb,c\td\n1\t2\t3\n"},
      {"#TSV-TO-CSV", "a\tb, \"c\"\n1\t\n", "a,\"b, \"\"c\"\"\"\n1,\n"},
      {"#CSV-TO-MARKDOWN", "a,b\n1,x|y\n", "| a | b |\n| --- | --- |\n| 1 | x\\|y |\n"},
      {"#TSV-TO-MARKDOWN", "a\tb\n", "| a | b |\n| --- | --- |\n"},
      {"#MARKDOWN-TO-CSV", "Text\n\n| a | b, c |\n|:--|---:|\n| 1\\|2 | |\n", "a,\"b, c\"\n1|2,\n"},
      {"#REPAIR-JSON",
       "// note\n{name: 'it\\'s', \"b\": [1, .5, +2,], \"c\" 3 'd': True, e: None, /* x */ “f”: "
       "word, g: {h: 007",
       "{\n  \"name\": \"it's\",\n  \"b\": [\n    1,\n    0.5,\n    2\n  ],\n  \"c\": 3,\n  \"d\": "
       "true,\n"
       "  \"e\": null,\n  \"f\": \"word\",\n  \"g\": {\n    \"h\": \"007\"\n  }\n}\n"},
      {"#REPAIR-JSON", "```json\n[1 // one\n 2]\n```", "[\n  1,\n  2\n]\n"},
      {"#XML-PRETTY", "<a x='1'><b>t <i>u</i></b><c/></a>",
       "<a x=\"1\">\n  <b>t <i>u</i></b>\n  <c/>\n</a>\n"},
      {"#XML-PRETTY", "<?xml version=\"1.0\"?><a>é</a>",
       "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a>é</a>\n"},
  };
  return table;
}

TEST(CleanerExamples, comeOutAsTheyShould) {
  const QFCleanerLibrary library;
  for (const Example& example : examples()) {
    SCOPED_TRACE(example.token);
    const Result<std::string> cleaned = library.clean(example.token, example.before);
    EXPECT_TRUE(cleaned) << (cleaned ? "" : cleaned.error().localizedDescription);
    if (cleaned) {
      EXPECT_EQ(*cleaned, example.after);
    }
  }
}

TEST(CleanerExamples, leaveNoCleanerOut) {
  std::set<std::string> shown;
  for (const Example& example : examples()) shown.insert(example.token);
  const QFCleanerLibrary library;
  for (const auto& [token, clean] : library.builtInCleaners()) {
    EXPECT_TRUE(shown.contains(token)) << token;
  }
}

TEST(CleanerExamples, sayWhereATextIsWrong) {
  const QFCleanerLibrary library;
  EXPECT_EQ(library.clean("#JSON-PRETTY", "{\n \"ä\": nil}").error().localizedDescription,
            "this is not valid JSON (line 2, column 8)");
  EXPECT_EQ(library.clean("#JSON-PRETTY", "[1e999,\n]").error().localizedDescription,
            "this is not valid JSON (line 2, column 1)");
}

TEST(CleanerExamples, refuseWhatTheyCannotTake) {
  const QFCleanerLibrary library;
  const std::vector<std::pair<std::string, std::string>> refused = {
      {"#JSON-PRETTY", "{\"a\":}"},
      {"#JSON-COMPACT", ""},
      {"#JSON-COMPACT", "[1e999, 01]"},
      {"#JSON-COMPACT", "[1e999, 1.e5]"},
      {"#EXTRACT-URLS", "no address"},
      {"#EXTRACT-MAIL-ADDRESSES", "@"},
      {"#EXTRACT-NUMBERS", ""},
      {"#JSON-PRETTY", std::string(600, '[') + std::string(600, ']')},
      {"#BASE64-DECODE", "not base64!"},
      {"#BASE64-DECODE", "/w=="},
      {"#URL-DECODE", "%FF"},
      {"#QUOTED-PRINTABLE-DECODE", "=FF"},
      {"#REPAIR-JSON", "words"},
      {"#REPAIR-JSON", "{} {}"},
      {"#XML-PRETTY", "<a><b></a>"},
      {"#MARKDOWN-TO-CSV", "words"},
      {"#EXTRACT-PHONE-NUMBERS", "12345"},
      {"#KEEP-LINES:x", "a\nb"},
      {"#WRAP-1", "text"},
      {"#NO-SUCH-CLEANER", "text"},
  };
  for (const auto& [token, text] : refused) {
    EXPECT_FALSE(library.clean(token, text)) << token << ' ' << text;
  }
  std::string nested;
  for (int i = 0; i < 600; ++i) nested += "<div>";
  EXPECT_FALSE(library.clean("#HTML-TO-TEXT", nested));
}

}  // namespace
}  // namespace qf
