#pragma once

#include <QAbstractItemModelTester>
#include <QStringList>

#include <gtest/gtest.h>

#include <memory>

/**
 * Runs Qt's QAbstractItemModelTester over a model while the object lives, and fails the test
 * for every complaint: unbracketed row changes, bad parents, ranges of other parents, rows
 * counted one way and reported another. The tester checks the model after every signal, so the
 * test only has to exercise the model.
 */
class ModelChecker
{
public:
  explicit ModelChecker(QAbstractItemModel* model)
  {
    // One handler serves every checker alive at a time.
    if (users_++ == 0)
      previous_ = qInstallMessageHandler(&ModelChecker::record_);
    tester_ = std::make_unique<QAbstractItemModelTester>(model, QAbstractItemModelTester::FailureReportingMode::Warning);
  }

  ~ModelChecker()
  {
    tester_.reset();
    if (--users_ == 0)
      qInstallMessageHandler(previous_);
    EXPECT_TRUE(complaints_().isEmpty()) << complaints_().join("\n").toStdString();
    complaints_().clear();
  }

  ModelChecker(const ModelChecker&) = delete;
  ModelChecker& operator=(const ModelChecker&) = delete;

private:
  static QStringList& complaints_()
  {
    static QStringList complaints;
    return complaints;
  }

  static void record_(QtMsgType type, const QMessageLogContext& context, const QString& message)
  {
    if (context.category && QByteArray(context.category) == "qt.modeltest")
      complaints_() << message;
    else if (previous_)
      previous_(type, context, message);
  }

  static inline QtMessageHandler previous_ = nullptr;
  static inline int users_ = 0;
  std::unique_ptr<QAbstractItemModelTester> tester_;
};
