#include <list>
#include <random>
#include <vector>

#include "report/section_index.h"
#include "tests/report/report_page.h"
#include "tests/report/sections/plain_sections.h"

namespace test {
namespace {

using report::ReportSection;
using report::SectionIndex;
using random_source = std::mt19937;

std::size_t below(random_source& source, std::size_t end) { return source() % end; }

// Paths of up to five headings out of a few, so that many are shared, at the same
// and at other places.
std::vector<ustring> random_path(random_source& source, std::size_t headings) {
  std::vector<ustring> path(below(source, 6));
  for (ustring& each : path)
    each = ustring(1, static_cast<char16_t>(u'A' + below(source, headings)));
  return path;
}

std::list<plain_section> random_sections(random_source& source) {
  std::list<plain_section> sections(below(source, 25));
  const std::size_t headings = 1 + below(source, 4);
  int number = 0;
  for (plain_section& each : sections) {
    each.headings = random_path(source, headings);
    for (std::size_t i = 0; i < each.headings.size(); ++i)
      each.styles.push_back(static_cast<std::int32_t>(below(source, 7)));
    if (below(source, 3) != 0) each.name = ustring(1, static_cast<char16_t>(u'a' + number));
    for (std::size_t i = below(source, 4); i != 0; --i)
      each.elements.push_back(
          {below(source, 4) == 0, ustring(1, static_cast<char16_t>(u'a' + number)) + u"!"});
    ++number;
  }
  return sections;
}

void make(IVellomark& report, const plain_section& section) {
  for (std::size_t i = 0; i < section.headings.size(); ++i)
    report.AddSectionHeading(section.headings[i].c_str(), section.styles[i]);
  report.BeginSection(section.name.c_str(), nullptr);
  for (const plain_element& element : section.elements) {
    if (!element.is_table) {
      report.AddText(element.text.c_str(), true);
      continue;
    }
    report.SetSectionMode(true);
    report.OpenTable(2);
    report.AddText(element.text.c_str(), false);
    report.CloseTable();
    report.SetSectionMode(false);
  }
}

TEST(RandomOrder, PageIsThatOfThePlainSearch) {
  const temp_folder folder;
  recording_opener browser;
  for (random_source::result_type seed = 1; seed <= 3000; ++seed) {
    random_source source(seed);
    const std::list<plain_section> sections = random_sections(source);
    VellomarkObj report(platform::file_system::native(), browser);
    for (const plain_section& each : sections) make(report, each);
    ASSERT_TRUE(report.Save(folder.text().c_str(), u"page.htm"));
    const ustring page = page_text(folder.path() / "Vellomark" / "page.htm");
    ASSERT_TRUE(same_units(body_of(page), plain_body(sections))) << "seed " << seed;
  }
}

std::list<ReportSection> with_paths(const std::vector<std::vector<ustring>>& paths) {
  std::list<ReportSection> sections;
  for (const std::vector<ustring>& path : paths) {
    sections.emplace_back();
    sections.back().heading_texts.assign(path.begin(), path.end());
    sections.back().heading_styles.assign(path.size(), 1);
  }
  return sections;
}

// Asks for the section closest to the path of any section, removed or not.
TEST(RandomOrder, IndexFindsWhatThePlainSearchFinds) {
  for (random_source::result_type seed = 1; seed <= 4000; ++seed) {
    random_source source(seed);
    std::vector<std::vector<ustring>> paths(1 + below(source, 20));
    const std::size_t headings = 1 + below(source, 3);
    for (std::vector<ustring>& path : paths) path = random_path(source, headings);
    std::list<ReportSection> sections = with_paths(paths);
    SectionIndex index(sections);

    std::vector<const SectionIndex::Entry*> entries(paths.size());
    std::vector<bool> taken(paths.size());
    const auto number_of = [&](const SectionIndex::Entry* entry) {
      if (entry == nullptr) return paths.size();
      return static_cast<std::size_t>(std::distance(sections.begin(), entry->section));
    };
    for (std::size_t left = paths.size(); left != 0; --left) {
      std::size_t first = 0;
      while (taken[first]) ++first;
      const SectionIndex::Entry* next = index.First();
      ASSERT_EQ(number_of(next), first) << "seed " << seed;
      entries[first] = next;

      // A path that was seen before, or that of the first.
      std::size_t from = below(source, paths.size());
      if (entries[from] == nullptr) from = first;
      std::size_t most = 0;
      std::size_t closest = paths.size();
      for (std::size_t i = 0; i < paths.size(); ++i) {
        if (taken[i] || shared_headings(paths[i], paths[from]) <= most) continue;
        most = shared_headings(paths[i], paths[from]);
        closest = i;
      }
      SectionIndex::Node* path = entries[from]->path;
      const SectionIndex::Entry* const found = index.Closest(path);
      ASSERT_EQ(number_of(found), closest) << "seed " << seed;
      if (found != nullptr && below(source, 4) != 0) next = found;
      entries[number_of(next)] = next;
      taken[number_of(next)] = true;
      index.Take(*next);
    }
    EXPECT_EQ(index.First(), nullptr);
  }
}

TEST(RandomOrder, IndexOfNothingIsEmpty) {
  std::list<ReportSection> sections;
  EXPECT_EQ(SectionIndex(sections).First(), nullptr);
}

}  // namespace
}  // namespace test
