// The automation calls (each a round trip to Photoshop: what `ostrel call --count-calls` counts) of the layer
// questions with a faster path, asked of the library and of the reference on one generated document. The
// arguments are chosen from the document: the lowest layer inside a group (the longest search for its group),
// the name of the list's last record.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "generated_documents.h"

namespace ostrel::test {

class LayerCallsDocument {
 public:
  struct Row {
    std::string name;
    std::string arguments;
    int64_t referenceCalls = 0;
    int64_t libraryCalls = 0;
    std::string referenceAnswer, libraryAnswer;
  };

  explicit LayerCallsDocument(const DocumentShape& shape);
  const std::vector<Row>& Rows() const { return m_rows; }
  const Row& RowOf(const std::string& name) const;

 private:
  std::vector<Row> m_rows;
};

}  // namespace ostrel::test
