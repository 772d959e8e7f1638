// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/cleaners/HTMLReader.h"

namespace qf {

/// Turns an HTML document into text that reads well: paragraphs parted by blank lines, lists with
/// bullets and numbers, quotations marked, table cells parted by tabs, the address of a link behind
/// its words. Or into Markdown, which has headings, emphasis, code and tables as well.
class HTMLTextWriter : public HTMLHandler {
 public:
  enum class Form { text, markdown };

  explicit HTMLTextWriter(Form form);
  ~HTMLTextWriter() override;

  void startElement(std::string_view name, const Attributes& attributes) override;
  void endElement(std::string_view name) override;
  void text(std::string_view text) override;

  /// Once, after the document.
  std::string result() &&;

 private:
  struct List {
    bool ordered = false;
    int number = 0;
  };
  struct Link {
    std::string address;
    std::optional<std::size_t> start;  ///< of its words, once there are any
  };

  struct Table;

  bool startInTable(std::string_view name, const Attributes& attributes);
  bool endInTable(std::string_view name);
  void endTable();
  void writeLines(std::string_view lines);

  void openBlock(std::string_view name);
  void startItem();
  void endItem();
  void startLink(const Attributes& attributes);
  void endLink();
  void writeImage(const Attributes& attributes);
  void writeCheckBox(const Attributes& attributes);

  void pushPrefix(std::string prefix);
  void popPrefix();
  void requestBreak(int lines);
  void beginWriting();
  void write(std::string_view words);
  void writePreformatted(std::string_view text);
  void openMark(std::string_view mark);
  void closeMark(std::string_view mark);
  std::string_view markOf(std::string_view name) const;

  Form _form;
  std::string _result;
  std::vector<std::string> _prefixes;
  std::vector<List> _lists;
  std::optional<Link> _link;
  std::unique_ptr<Table> _table;   ///< the one that is open, in Markdown
  std::string _bullet;             ///< of an item of which nothing is written yet
  int _breakLines = 0;             ///< 1: a new line, 2: a blank line as well
  std::size_t _breakPrefixes = 0;  ///< how many prefixes its blank line has
  bool _spaceBefore = false;
  bool _tabBefore = false;
  bool _isAtLineStart = true;
  bool _isFirstCell = true;
  int _hidden = 0;
  int _preformatted = 0;
};

}  // namespace qf
