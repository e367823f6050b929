// Test main for programs that need a QApplication; tests run under the offscreen platform.
#include <QApplication>

#include <gtest/gtest.h>

#include <unistd.h>

int main(int argc, char** argv)
{
  qputenv("QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
  // The globe's web engine refuses to start as root with its sandbox.
  if (getuid() == 0)
    qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
  QApplication app(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
