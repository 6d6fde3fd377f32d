#include "tests/vocabulary/dtd.h"

#include <cctype>
#include <stdexcept>
#include <vector>

namespace test {
namespace {

using entities = std::map<std::string, std::string>;

std::string without_comments(std::string text) {
  for (std::size_t begin; (begin = text.find("<!--")) != std::string::npos;) {
    const std::size_t end = text.find("-->", begin);
    if (end == std::string::npos) throw std::runtime_error("comment without end");
    text.replace(begin, end + 3 - begin, " ");
  }
  return text;
}

/// The text of each declaration, without "<!" and ">".
std::vector<std::string> declarations(const std::string& text) {
  std::vector<std::string> found;
  for (std::size_t begin = text.find("<!"); begin != std::string::npos;
       begin = text.find("<!", begin)) {
    begin += 2;
    std::size_t end = begin;
    for (char quote = 0; end < text.size() && (quote || text[end] != '>'); ++end)
      if (quote ? text[end] == quote : text[end] == '"' || text[end] == '\'')
        quote = quote ? 0 : text[end];
    if (end == text.size()) throw std::runtime_error("declaration without end");
    found.push_back(text.substr(begin, end - begin));
    begin = end;
  }
  return found;
}

/// `text` with each %name; replaced by its entity, as often as there is one.
std::string expanded(std::string text, const entities& known) {
  for (std::size_t begin; (begin = text.find('%')) != std::string::npos;) {
    const std::size_t end = text.find(';', begin);
    if (end == std::string::npos) throw std::runtime_error("reference without end");
    const auto entity = known.find(text.substr(begin + 1, end - begin - 1));
    if (entity == known.end()) throw std::runtime_error("unknown entity in " + text);
    text.replace(begin, end + 1 - begin, " " + entity->second + " ");
  }
  return text;
}

/// Splits at blanks; a quoted text and a bracketed list are one word each.
std::vector<std::string> words(const std::string& text) {
  std::vector<std::string> found;
  for (std::size_t begin = 0; begin < text.size();) {
    const char first = text[begin];
    std::size_t end = begin + 1;
    if (std::isspace(static_cast<unsigned char>(first))) {
      begin = end;
      continue;
    }
    if (first == '"' || first == '\'' || first == '(') {
      end = text.find(first == '(' ? ')' : first, end);
      if (end == std::string::npos) throw std::runtime_error("no end of " + text);
      ++end;
    } else {
      while (end < text.size() && !std::isspace(static_cast<unsigned char>(text[end]))) ++end;
    }
    found.push_back(text.substr(begin, end - begin));
    begin = end;
  }
  return found;
}

/// The names in a content model; EMPTY has none.
std::set<std::string> names_in(const std::string& model) {
  std::set<std::string> names;
  std::string name;
  for (char unit : model + " ") {
    if (std::isalnum(static_cast<unsigned char>(unit)) || unit == '#') {
      name.push_back(unit);
    } else if (!name.empty()) {
      names.insert(name);
      name.clear();
    }
  }
  names.erase("EMPTY");
  return names;
}

/// The names in an attribute list: each is followed by a type and a default.
std::set<std::string> attributes_in(const std::string& list) {
  std::set<std::string> names;
  const std::vector<std::string> parts = words(list);
  for (std::size_t i = 0; i < parts.size();) {
    if (i + 2 >= parts.size()) throw std::runtime_error("incomplete attribute in " + list);
    names.insert(parts[i]);
    i += parts[i + 2] == "#FIXED" ? 4 : 3;
  }
  return names;
}

/// Cuts the first word off `text` and returns it.
std::string take_word(std::string& text) {
  const auto is_blank = [&](std::size_t i) {
    return std::isspace(static_cast<unsigned char>(text[i])) != 0;
  };
  std::size_t begin = 0;
  while (begin < text.size() && is_blank(begin)) ++begin;
  std::size_t end = begin;
  while (end < text.size() && !is_blank(end)) ++end;
  const std::string word = text.substr(begin, end - begin);
  text.erase(0, end);
  return word;
}

}  // namespace

std::map<std::string, dtd_element> read_dtd(const std::string& text) {
  std::map<std::string, dtd_element> elements;
  entities known;
  for (std::string rest : declarations(without_comments(text))) {
    const std::string kind = take_word(rest);
    std::string name = take_word(rest);
    if (kind == "ENTITY" && name == "%") {
      name = take_word(rest);
      const std::vector<std::string> value = words(rest);
      if (value.size() == 1) known[name] = value[0].substr(1, value[0].size() - 2);
    } else if (kind == "ELEMENT") {
      elements[name].children = names_in(expanded(rest, known));
    } else if (kind == "ATTLIST") {
      elements[name].attributes = attributes_in(expanded(rest, known));
    }
  }
  return elements;
}

}  // namespace test
