#include "multirename/random_rules.h"

namespace PlainRules {

namespace {

const WString kPropertyNameOf80(80, W('p'));

// Times at midnight, at the limits of the range, and invalid ones.
constexpr std::uint64_t kFileTimes[] = {0,                   // no date
                                        1,                   // the first one of 1601
                                        116444736000000000,  // 1970-01-01 00:00:00
                                        125963424010000000,  // 2000-02-29 12:00:01
                                        133541567990000000,  // 2024-03-05 23:59:59
                                        0x7FFFFFFFFFFFFFFF,  // the last valid one
                                        0x8000000000000000,  // greater than any valid one
                                        0xFFFFFFFFFFFFFFFF};

}  // namespace

// --- rows

WString RandomRules::Letters(std::size_t most) {
  WString text;
  for (std::size_t count = (*this)(most + 1); count > 0; --count) {
    text +=
        OneIn(5)
            ? Of({W("\u00E9"), W("\u00C9"), W("\u00DF"), W("\u0130"), W("\u0131"), W("\u212A"), W("\u03A3"),
                  W("\u03C3"), W("\u65E5"), W("\uFB01"), W("\U0001F600"), W("\U00010400"), W("e\u0301")})
            : Of({W("a"), W("A"), W("b"), W("B"), W("z"), W("Z"), W("1"), W("9"), W(" "),  W("_"), W("."),
                  W("-"), W("("), W("+"), W("$"), W("@"), W("`"), W("{"), W("'"), W("ab"), W("aB")});
  }
  if (OneIn(40)) text += static_cast<WCHAR>(0xD800 + (*this)(0x800));
  if (OneIn(40)) text += Of({W("\r\n"), W("\r"), W("\n"), W("\r\r\n\n"), W("\r\n\r\n"), W("\t")});
  if (OneIn(20))
    text +=
        Of({W("*"), W("|"), W("|"), W("|"), W("/"), W(":"), W("\""), W("<"), W(">"), W("?"), W("["), W("]")});
  return text;
}

WString RandomRules::NameText() {
  if (OneIn(3))
    return Of({W("a"), W("A"), W("ab"), W("AB"), W("aB"), W("img 1"), W("Img 1"), W("\u00E9"), W("\u00C9")});
  if (OneIn(12)) return {};
  if (OneIn(60)) {
    const WCHAR letter = OneOf({W('n'), W('N'), W('\u00E9')});
    return WString(200 + (*this)(100), letter);
  }
  if (OneIn(300)) return WString(4000 + (*this)(90), W('m'));
  return Letters(12);
}

WString RandomRules::OldName() {
  WString name = NameText();
  if (!OneIn(4))
    name += W(".") + (OneIn(4) ? Letters(4) : Of({W(""), W("txt"), W("TXT"), W("x.y"), W("\u00E9")}));
  if (OneIn(30)) name = Of({W("\\"), W("C:\\x.y\\"), W("dir\\")}) + name;
  return name.substr(0, 4095);
}

Property RandomRules::MakeProperty() {
  Property property;
  property.name =
      Of({W("size"), W("created"), W("owner"), W("odd name"), W(""), W("n"), W("{}"), kPropertyNameOf80});
  switch ((*this)(6)) {
    case 0:
      property.text =
          Of({W("0"), W("7"), W("12345"), W("-7"), W("+8"), W(" 42 KB"), W("\t9"), W("1.5"), W("x"),
              W("2147483647"), W("-2147483649"), W("99999999999999999999"), W("-"), W("00012")});
      break;
    case 1:
      property.date =
          OneOf<std::uint64_t>({kFileTimes[(*this)(std::size(kFileTimes))], engine_() * 0x40000000ull});
      break;
    case 2:
      property.text = WString(255, W('t'));
      break;
    default:
      property.text = Letters(8);
      break;
  }
  if (OneIn(4)) property.date = 133541567990000000;
  if (OneIn(8)) property.count = OneOf({0, -1, 2, 255});
  property.fails = OneIn(8);
  if (property.name == W("created") && OneIn(2)) property.text.clear();
  return property;
}

std::vector<Row> RandomRules::MakeRows() {
  std::vector<Row> rows((*this)(6));
  const WString shared = OldName();
  for (std::size_t i = 0; i < rows.size(); ++i) {
    Row& row = rows[i];
    row.oldName = OneIn(3) ? shared : OldName();
    if (OneIn(4)) row.oldName = Uppered(row.oldName);
    row.path = Of({W("Z:\\photos\\"), W("Z:\\Photos\\old\\"), W("C:\\")});
    row.path += static_cast<WCHAR>(W('0') + i);
    row.folderTag = OneIn(3) ? Letters(10) : Of({W("photos"), W("Photos"), W("old"), W(""), W("2024.x")});
    if (OneIn(40)) row.folderTag = WString(OneOf<std::size_t>({1022, 1023, 1024, 4095}), W('f'));
    row.isFolder = OneIn(4);
    row.isSkipped = OneIn(25);
    row.hidesPath = OneIn(25);
    for (std::size_t count = (*this)(5); count > 0; --count) row.properties.push_back(MakeProperty());
  }
  return rows;
}

SYSTEMTIME RandomRules::MakeTime() {
  SYSTEMTIME time{};
  time.wYear = OneOf<WORD>({1601, 1999, 2000, 2005, 2026, 9999, 999, 1000, 1001, 12345, 0});
  time.wMonth = static_cast<WORD>(1 + (*this)(12));
  time.wDay = static_cast<WORD>(1 + (*this)(28));
  time.wHour = static_cast<WORD>((*this)(24));
  time.wMinute = static_cast<WORD>((*this)(60));
  time.wSecond = static_cast<WORD>((*this)(60));
  return time;
}

// --- templates

WString RandomRules::NumberText() {
  if (OneIn(12)) {
    return Of({W("2147483647"), W("2147483648"), W("-2147483648"), W("4294967297"), W("99999999999999999999"),
               W("1022"), W("1023"), W("1024"), W("5x3"), W(" 5"), W("5 6"), W("+3"), W("--"), W("- 4")});
  }
  // The digit is the last one that is read, or the first one that is not.
  if (OneIn(60)) return WString(OneOf<std::size_t>({78, 79, 80, 81}), W('0')) + W("3");
  WString text = OneIn(4) ? W("-") : W("");
  if (OneIn(10)) text += W("0");
  text += static_cast<WCHAR>(W('0') + (*this)(10));
  if (OneIn(5)) text += static_cast<WCHAR>(W('0') + (*this)(10));
  return text;
}

WString RandomRules::RangeText() {
  WString text = OneIn(8) ? Of({W(","), W("-"), W("x"), W(" "), W(",,"), W("{"), W("}")}) : WString();
  for (std::size_t count = OneOf<std::size_t>({0, 1, 1, 2, 2, 2, 3, 4}); count > 0; --count) {
    text += NumberText();
    if (count > 1 || OneIn(10))
      text += Of({W(","), W("-"), W(","), W("-"), W(", "), W("-x"), W(",,"), W("x")});
  }
  return text;
}

WString RandomRules::CounterText() {
  switch ((*this)(6)) {
    case 0:
      return {};
    case 1:
      return Of({W("2147483646,1,3"), W("2147483647,2147483647"), W("1,1,1023"), W("9,99,1024"), W("0,0,3"),
                 W("8,1,2"), W("0,1"), W("5"), W("1-2-3"), W("1,2,3,4"), W("-1,-2"), W("x3")});
    default:
      return RangeText();
  }
}

WString RandomRules::PropertyTagText() {
  WString text =
      Of({W("size"), W("created"), W("created"), W("owner"), W("odd name"), W(""), W("n"), W("none"), W("{}"),
          kPropertyNameOf80, kPropertyNameOf80 + W("p"), kPropertyNameOf80.substr(1)});
  if (OneIn(3)) return text;
  text += Of({W(","), W("-"), W(""), W(",,")});
  if (!OneIn(3)) {
    text += W("{");
    text += Of({W("n"),          W("N4"),
                W("N4"),         W("N"),
                W("n0"),         W("n-5"),
                W("n 3"),        W("nx"),
                W("n1024"),      W("n99999999999"),
                W(""),           W("|"),
                W("yyyyMMdd"),   W("yyyy-MM-dd|HH.mm.ss"),
                W("|HHmm"),      W("dddd d MMMM yyyy|"),
                W("yy|h:mm tt"), W("'on' d"),
                W("d|'at' H|m"), W("x"),
                W("MMM,-d")});
    if (OneIn(40)) text += WString(100, W('d'));
    if (!OneIn(10)) text += W("}");
  }
  if (OneIn(2)) text += RangeText();
  return text;
}

WString RandomRules::TagText() {
  const WString letter =
      Of({W("N"), W("N"), W("N"), W("n"), W("E"), W("e"), W("F"),  W("f"),     W("C"), W("C"),
          W("c"), W("Y"), W("M"), W("D"), W("h"), W("m"), W("s"),  W("?"),     W("?"), W("y"),
          W("d"), W("H"), W("S"), W("x"), W(""),  W("1"), W(" N"), W("\u00D1")});
  WString text = W("[") + letter;
  if (letter == W("C") || letter == W("c")) {
    text += CounterText();
  } else if (letter == W("?")) {
    text += PropertyTagText();
  } else if (!OneIn(3)) {
    text += RangeText();
  }
  return text + W("]");
}

WString RandomRules::TemplateText() {
  if (OneIn(12)) return {};
  WString text;
  for (std::size_t count = 1 + (*this)(4); count > 0; --count) {
    switch ((*this)(12)) {
      case 0:
        text += Of({W("[["), W("]]"), W("["), W("]"), W("[N"), W("N]"), W("Photo]"), W("[[["), W("]]]")});
        break;
      case 1:  // a tag inside a tag
      {
        const WString inner = TagText();
        const WString outer = TagText();
        const std::size_t at = (*this)(outer.size() + 1);
        text += outer.substr(0, at) + inner + outer.substr(at);
      } break;
      case 2:
      case 3:
        text += Letters(4);
        break;
      case 4:
        text += TagText();
        text.erase((*this)(text.size()), 1);
        break;
      default:
        text += TagText();
        break;
    }
  }
  if (OneIn(60)) {  // longer than the part that is read
    const bool growsBeyondAName = OneIn(2);
    while (text.size() < 1100) {
      text += growsBeyondAName ? W("[F][C0,1,1023]") : W("[N1]");
      text += OneIn(3) ? TagText() : Letters(8);
    }
  }
  return text;
}

// --- search

WString RandomRules::ExpressionText() {
  if (OneIn(12)) {
    return Of({W("("), W("["), W("a**"), W("\\"), W("*"), W(")"), W("[b-a]"), W("(a)\\2"), W("a{2,1}"),
               W("[[:x:]]")});
  }
  WString text = OneIn(6) ? W("^") : W("");
  std::size_t repeats = 2;
  for (std::size_t count = 1 + (*this)(3); count > 0; --count) {
    const WString atom =
        Of({W("a"),     W("b"),           W("A"),      W("."),      W("\\."),    W("[ab]"),  W("[^a]"),
            W("[a-z]"), W("[A-Z]"),       W("\\d"),    W("\\w"),    W("\\W"),    W("\\s"),   W("\\S"),
            W("(a)"),   W("(.)"),         W("(b|c)"),  W("(?:ab)"), W("\u00E9"), W("(?=a)"), W("(?!b)"),
            W("\\b"),   W("[[:alpha:]]"), W("(.)\\1"), W("\\(")});
    text += atom;
    const WCHAR last = atom.back();
    if (repeats > 0 && OneIn(3) && atom != W("\\b") && atom.substr(0, 2) != W("(?")) {
      text += Of({W("?"), W("*"), W("+"), W("{2}"), W("{1,2}"), W("*?"), W("+?"), W("{0}")});
      --repeats;
    } else if (last == W('a') && OneIn(6)) {
      text += W("|b");
    }
  }
  if (OneIn(6)) text += W("$");
  return text;
}

WString RandomRules::ExpressionReplacement() {
  WString text;
  for (std::size_t count = (*this)(3); count > 0; --count) {
    text += Of({W("x"), W("$&"), W("$1"), W("$2"), W("$10"), W("$01"), W("$0"), W("$$"), W("$`"), W("$'"),
                W("$"), W("\u00E9"), W("AB"), W("-"), W("\\1"), W("|"), W("$x"), W("$12")});
  }
  return text;
}

Pairs RandomRules::MakePairs(bool expressions) {
  Pairs pairs;
  for (std::size_t count = expressions ? 1 + (*this)(2) : (*this)(4); count > 0; --count) {
    auto& [find, replace] = pairs.emplace_back();
    if (OneIn(12)) {
      replace = Letters(3);
    } else if (expressions) {
      find = ExpressionText();
      replace = ExpressionReplacement();
    } else {
      find = OneIn(3) ? Letters(2)
                      : Of({W("a"), W("A"), W("aa"), W("ab"), W("."), W(" "), W("1"), W("\u00E9"), W("0"),
                            W("f"), W("txt"), W("$"), W("\r\n")});
      replace = OneIn(3) ? Letters(3)
                         : Of({W(""), W("a"), W("aa"), W("Ab"), W("$&"), W("\\"), W("?"), W(" "), W("\r"),
                               W("\n"), W("0000")});
    }
  }
  return pairs;
}

Rules RandomRules::MakeRules() {
  Rules rules;
  rules.filenameTemplate =
      OneIn(4) ? Of({W("[N]"), W("[N1]"), W("[N]_[C]"), W("same"), W("[F]")}) : TemplateText();
  rules.extensionTemplate = OneIn(2) ? Of({W("[E]"), W("[e]"), W("")}) : TemplateText();
  rules.startAt = OneIn(2) ? Of({W("1"), W("0"), W("2147483646"), W("-2"), W(" 7"), W("x")}) : NumberText();
  rules.stepBy = OneIn(2) ? Of({W("1"), W("0"), W("2147483647"), W("-1"), W("")}) : NumberText();
  rules.digits =
      Of({W("2"), W("2"), W("0"), W("1"), W("5"), W(""), W("1023"), W("1024"), W("2147483647"), W("-3")});
  if (OneIn(2)) rules.caseRule = 1u << (*this)(8);
  if (OneIn(12)) rules.caseRule = (*this)(256);
  rules.searchFlags = OneOf<std::uint32_t>({0x1000000, 0x1000000, 0x2000000, 0x4000000, 0, 0x6000000});
  if (OneIn(2)) rules.searchFlags |= kCaseMatters;
  if (OneIn(2)) rules.searchFlags |= kReplacesAll;
  const bool expressions = OneIn(5);
  if (expressions) rules.searchFlags |= kIsExpression;
  rules.pairs = MakePairs(expressions);
  return rules;
}

}  // namespace PlainRules
