#pragma once

#include <memory>

#include "document/document.h"

namespace orvane::testing {

/// A document and its data, for tests to arrange past it.
class ArrangedDocument {
 private:
  std::unique_ptr<document::Contents> MakeContents() {
    auto contents = std::make_unique<document::Contents>();
    arranged_ = &contents->data;
    return contents;
  }
  core::RadioData* arranged_ = nullptr;

 public:
  explicit ArrangedDocument(std::size_t history_bytes = document::Document::kHistoryBytes)
      : document(MakeContents(), history_bytes) {}
  ArrangedDocument(const ArrangedDocument&) = delete;
  ArrangedDocument& operator=(const ArrangedDocument&) = delete;

  document::Document document;
  core::RadioData& data = *arranged_;
};

}  // namespace orvane::testing
