// Compares compiled templates, new names, states and replace lists with the reference, over random rows and
// rules.
#include <gtest/gtest.h>

#include <iomanip>
#include <sstream>

#include "frame/host/host_properties.h"
#include "multirename/engine/multi_rename_engine.h"
#include "multirename/random_rules.h"
#include "multirename/rules/rule_flags.h"
#include "support/fake_host.h"
#include "support/random_cases.h"

namespace RenameRulesDifferentialTest {

using namespace PlainRules;
using namespace Velmora::SDK;

namespace {

// --- the rows as the engine sees them

// Thrown by the host; a type that the module does not know.
struct HostFault {};

class RowItem final : public IHostFileItem {
 public:
  explicit RowItem(const Row& row) : row_(row) {}

  const WCHAR* GetName(WCHAR* buffer, u32 size) override { return Fill(buffer, size, row_.oldName); }
  void GetBaseName(WCHAR* buffer, u32 size) override { Fill(buffer, size, W("not asked")); }
  const WCHAR* GetFolderPath(WCHAR* buffer, u32 size) override {
    return Fill(buffer, size, W("Z:\\photos\\"));
  }
  void GetParentPath(WCHAR* buffer, u32 size) override { Fill(buffer, size, W("not asked")); }
  const WCHAR* GetFullPath(WCHAR* buffer, u32 size) override {
    if (row_.hidesPath) throw HostFault();
    return Fill(buffer, size, row_.path);
  }
  void GetTagText(WCHAR* buffer, u32 size) override { Fill(buffer, size, row_.folderTag); }
  const WCHAR* GetExtensionText(u32) override { return W("not asked"); }
  void GetExtension(WCHAR* buffer, u32 size, u32) override { Fill(buffer, size, W("not asked")); }
  u32 GetAttributes() override { return 0; }
  s64 GetRowImage(u32) override { return 0; }
  bool IsFolder() override { return row_.isFolder; }
  s32 GetRemoteLevel() override { return 0; }
  int GetStoredProperty(u32, u32, void*) override { return 0; }
  void ClearStoredProperty(u32) override {}

 private:
  static const WCHAR* Fill(WCHAR* buffer, u32 size, WStringView text) {
    CopyTerminated(buffer, size, text);
    return buffer;
  }

  const Row& row_;
};

class RowProperties final : public IHostPropertyManager {
 public:
  explicit RowProperties(const std::vector<Row>& rows) : rows_(rows) {}

  u32 GetValue(WCHAR* buffer, u32 size, const WCHAR* name, void* record, const WCHAR* fullPath) override {
    for (const Row& row : rows_) {
      if (row.path != fullPath) continue;
      for (const Property& property : row.properties) {
        if (property.name != name) continue;
        if (property.fails) throw HostFault();
        CopyTerminated<WCHAR>(buffer, size, property.text);
        static_cast<FilePropertyValue*>(record)->date = property.date;
        return static_cast<u32>(property.count);
      }
    }
    return 0;
  }
  void ListProperties(IHostPropertyList*, u32) override {}

 private:
  const std::vector<Row>& rows_;
};

// --- the message of a difference

std::string Shown(const WString& text) {
  std::ostringstream out;
  out << '"';
  for (std::size_t i = 0; i < text.size(); ++i) {
    const WCHAR c = text[i];
    std::size_t same = i;
    while (same < text.size() && text[same] == c) ++same;
    if (c >= W(' ') && c < 127) {
      out << static_cast<char>(c);
    } else {
      out << "\\u" << std::hex << std::setw(4) << std::setfill('0') << static_cast<unsigned>(c) << std::dec;
    }
    if (same - i > 20) {
      out << "{" << same - i << " times}";
      i = same - 1;
    }
  }
  out << '"';
  return out.str();
}

std::string Shown(const Rules& rules) {
  std::ostringstream out;
  out << "  name " << Shown(rules.filenameTemplate) << "\n  extension " << Shown(rules.extensionTemplate)
      << "\n  start " << Shown(rules.startAt) << ", step " << Shown(rules.stepBy) << ", digits "
      << Shown(rules.digits) << ", case " << rules.caseRule << ", search 0x" << std::hex << rules.searchFlags;
  for (const auto& [find, replace] : rules.pairs) out << "\n  " << Shown(find) << " to " << Shown(replace);
  return out.str();
}

std::string Shown(const std::vector<Row*>& rows, const SYSTEMTIME& now) {
  std::ostringstream out;
  out << "  now " << now.wYear << "-" << now.wMonth << "-" << now.wDay << " " << now.wHour << ":"
      << now.wMinute << ":" << now.wSecond;
  for (const Row* row : rows) {
    out << "\n  " << (row->isFolder ? "folder " : "file ") << Shown(row->oldName) << " in "
        << Shown(row->folderTag) << (row->isSkipped ? " skipped" : "")
        << (row->hidesPath ? " without a path" : "");
    for (const Property& property : row->properties) {
      out << "\n    " << Shown(property.name) << ": " << Shown(property.text) << ", date " << property.date
          << ", count " << property.count << (property.fails ? ", throws" : "");
    }
  }
  return out.str();
}

// --- templates

constexpr std::pair<WCHAR, TagKind> kKinds[] = {
    {W('N'), TagName},   {W('E'), TagExtension}, {W('F'), TagFolder},   {W('C'), TagCounter},
    {W('Y'), TagYear},   {W('M'), TagMonth},     {W('D'), TagDay},      {W('h'), TagHour},
    {W('m'), TagMinute}, {W('s'), TagSecond},    {W('?'), TagProperty}, {0, TagText}};

u32 KindOf(const Tag& tag) {
  for (const auto& [letter, kind] : kKinds) {
    if (letter == tag.letter) return kind;
  }
  return 0;
}

bool IsSameTag(const RenameTag& tag, const Tag& plain) {
  const bool hasText = plain.letter == 0 || plain.letter == W('?');
  return tag.kind == KindOf(plain) && (!hasText || tag.text == plain.text) && tag.format == plain.format &&
         tag.start == plain.start && tag.end == plain.end && tag.length == plain.length;
}

void ExpectSameTags(const WString& text) {
  const RenameTags tags = ParseTemplate(text);
  const std::vector<Tag> plain = TagsOf(text);
  ASSERT_EQ(tags.size(), plain.size()) << "tokens of " << Shown(text);
  for (std::size_t i = 0; i < tags.size(); ++i) {
    EXPECT_TRUE(IsSameTag(tags[i], plain[i]))
        << "token " << i << " of " << Shown(text) << ": kind " << tags[i].kind << ", text "
        << Shown(tags[i].text) << ", format " << Shown(tags[i].format) << ", " << tags[i].start << " "
        << tags[i].end << " " << tags[i].length << "; by the rule " << KindOf(plain[i]) << ", "
        << Shown(plain[i].text) << ", " << Shown(plain[i].format) << ", " << plain[i].start << " "
        << plain[i].end << " " << plain[i].length;
  }
}

// --- a session: rows that are renamed by several sets of rules in turn

// Counts the kinds of cases that occurred, to verify that all kinds did.
struct Seen {
  int duplicates = 0;
  int invalidNames = 0;
  int longestNames = 0;
  int badExpressions = 0;
  int searchedByExpression = 0;
};

// For longer texts the product may refuse an expression that the library runs.
constexpr std::size_t kMaxSearched = 48;

class Session {
 public:
  explicit Session(u32 seed)
      : random_(seed), rows_(random_.MakeRows()), properties_(rows_), engine_(nullptr) {
    engine_.host = &host_;
    engine_.propertyManager = &properties_;
    for (const Row& row : rows_) hostItems_.emplace_back(row);
    for (RowItem& item : hostItems_) items_->emplace_back(item);
    for (Row& row : rows_) row.newName = row.oldName;
  }

  // Renames once more.
  void Rename(Seen& seen) {
    const SYSTEMTIME now = random_.MakeTime();
    ShuffleOrder();
    for (std::size_t i = 0; i < rows_.size(); ++i) {
      (*items_)[i].state = rows_[i].isSkipped ? StateSkipped : StateReady;
    }
    const Rules rules = HarmlessRules(now);
    const std::vector<Row*> rows = InOrder(rows_);
    SCOPED_TRACE(Shown(rules) + "\n" + Shown(rows, now));
    ExpectSameTags(rules.filenameTemplate);
    ExpectSameTags(rules.extensionTemplate);

    const bool isExpression = (rules.searchFlags & kIsExpression) != 0;
    const auto [bad, message] = isExpression ? FirstBadExpression(rules.pairs) : std::pair(0u, std::string());
    const bool compiled = Compile(rules);
    ASSERT_EQ(compiled, bad == 0);
    EXPECT_EQ(engine_.status.HasError(), bad != 0);
    EXPECT_EQ(ToUtf8(engine_.status.ErrorText()), message);
    if (bad != 0) {
      ++seen.badExpressions;
      return;
    }

    engine_.now = now;
    for (MultiRenameItem* item : engine_.items) ComputeName(engine_, *item);
    CheckConflicts(engine_);
    Pass pass(rules, now);
    for (Row* row : rows) pass.Compute(*row);
    MarkConflicts(rows);
    for (std::size_t i = 0; i < rows_.size(); ++i) {
      const MultiRenameItem& item = (*items_)[i];
      const Row& row = rows_[i];
      EXPECT_TRUE(item.newName == row.newName) << "the name of " << Shown(row.oldName) << "\n  is  "
                                               << Shown(item.newName) << "\n  not " << Shown(row.newName);
      EXPECT_EQ(item.state, row.state)
          << "the state of " << Shown(row.oldName) << ", now " << Shown(row.newName);
      seen.duplicates += row.state == 1;
      seen.invalidNames += row.state == 2;
      seen.longestNames += row.newName.size() == kMaxPlainNameChars;
    }
    seen.searchedByExpression += isExpression && pass.searched.most != 0;
  }

 private:
  void ShuffleOrder() {
    order_.resize(rows_.size());
    for (std::size_t i = 0; i < order_.size(); ++i) order_[i] = i;
    for (std::size_t i = order_.size(); i > 1; --i) std::swap(order_[i - 1], order_[random_(i)]);
  }
  std::vector<Row*> InOrder(std::vector<Row>& rows) const {
    std::vector<Row*> ordered;
    for (const std::size_t i : order_) ordered.push_back(&rows[i]);
    return ordered;
  }

  // Draws rules until none applies an expression to, or produces with it, a long text.
  Rules HarmlessRules(const SYSTEMTIME& now) {
    for (;;) {
      const Rules rules = random_.MakeRules();
      if ((rules.searchFlags & kIsExpression) == 0) return rules;
      std::vector<Row> rows = rows_;
      Rules withoutPairs = rules;
      withoutPairs.pairs.clear();
      Pass withoutSearch(withoutPairs, now);
      bool fits = true;
      for (Row* row : InOrder(rows)) {
        withoutSearch.Compute(*row);
        fits = fits && row->newName.size() <= kMaxSearched;
      }
      if (!fits) continue;
      Pass pass(rules, now);
      for (Row* row : InOrder(rows)) pass.Compute(*row);
      if (pass.searched.most <= kMaxSearched) return rules;
    }
  }

  bool Compile(const Rules& rules) {
    RuleInput input;
    input.itemsOwner = items_;
    for (const std::size_t i : order_) input.items.push_back(&(*items_)[i]);
    input.filenameTemplate = rules.filenameTemplate;
    input.extensionTemplate = rules.extensionTemplate;
    input.startAt = rules.startAt;
    input.stepBy = rules.stepBy;
    input.digits = rules.digits;
    input.caseRule = rules.caseRule;
    input.searchFlags = rules.searchFlags;
    if (!rules.pairs.empty() || random_.OneIn(2)) {
      input.searchItems = std::make_shared<const SearchAndReplaceItems>(rules.pairs);
    }
    return CompileRules(engine_, std::move(input));
  }

  RandomRules random_;
  std::vector<Row> rows_;
  RowProperties properties_;
  std::deque<RowItem> hostItems_;
  SharedItems items_ = std::make_shared<MultiRenameItems>();
  std::vector<std::size_t> order_;
  FakeHost host_;
  MultiRenameEngine engine_;
};

}  // namespace

TEST(RenameRulesDifferential, RandomRulesGiveTheNamesAndStatesOfThePlainRule) {
  Seen seen;
  for (u32 seed = 1; seed <= RandomCases(5000u); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Session session(seed);
    session.Rename(seen);
    session.Rename(seen);
    if (testing::Test::HasFailure()) return;
  }
  EXPECT_GT(seen.duplicates, RandomCases(1000));
  EXPECT_GT(seen.invalidNames, RandomCases(1000));
  EXPECT_GT(seen.longestNames, RandomCases(10));
  EXPECT_GT(seen.badExpressions, RandomCases(100));
  EXPECT_GT(seen.searchedByExpression, RandomCases(500));
}

TEST(RenameRulesDifferential, RandomListsOfNamesHaveTheConflictsOfThePlainRule) {
  const std::vector<WString> pool = {W("a"),      W("A"),      W("aB"),     W("Ab"), W("k"),  W("K"),
                                     W("\u212A"), W("\u00E9"), W("\u00C9"), W("a?"), W("A?"), W("[a"),
                                     W("{A"),     W("@a"),     W("`A"),     W("z|"), W("Z|"), W(""),
                                     W("a\\"),    W("a.b"),    W("A.B")};
  MultiRenameEngine engine(nullptr);
  for (u32 seed = 1; seed <= RandomCases(10000u); ++seed) {
    RandomRules random(seed);
    std::vector<Row> rows(random(20));
    std::vector<Row*> pointers;
    MultiRenameItems items(rows.size());
    engine.items.clear();
    const std::size_t names = 1 + random(pool.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
      rows[i].newName = pool[(seed + random(names)) % pool.size()];
      pointers.push_back(&rows[i]);
      items[i].StoreNewName(rows[i].newName);
      items[i].state = random(7);
      engine.items.push_back(&items[i]);
    }
    CheckConflicts(engine);
    MarkConflicts(pointers);
    for (std::size_t i = 0; i < rows.size(); ++i) {
      ASSERT_EQ(items[i].state, rows[i].state)
          << "seed " << seed << ", row " << i << " " << Shown(rows[i].newName) << ", first "
          << Shown(rows[0].newName);
    }
  }
}

}  // namespace RenameRulesDifferentialTest
