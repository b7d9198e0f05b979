#pragma once

#include "data/Business.h"
#include "support/BusinessBuilder.h"
#include "support/Literals.h"
#include "support/ScriptedOutside.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace quillary {

/// Opens a fresh empty business on a pinned day, Monday 2 November 2026. A statement that is
/// refused without having been announced, a question that nobody expected and a reported error each
/// fail the test.
class BusinessTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  /// The next statements whose text contains `part` may be refused.
  void ExpectRefused(const QString& part);
  /// Runs a statement of test data; a refusal fails the test.
  Recordset Run(const Sql& statement);
  qint64 Count(const char* table);
  /// For test data by the names of its columns.
  BusinessBuilder Build() { return BusinessBuilder(*business_); }

  ScriptedOutside outside;
  QTemporaryDir folder;
  Business& business() { return *business_; }

 private:
  std::unique_ptr<Business> business_;
  QStringList announcedRefusals_;
};

}  // namespace quillary
