# One precompiled header of the Qt headers, built once and reused by every target that uses Qt.
# Targets that reuse it must link Qt5::Widgets so that their flags match the header's.
add_library(sep_qt_pch OBJECT ${CMAKE_CURRENT_LIST_DIR}/qt_pch.cpp)
target_link_libraries(sep_qt_pch PUBLIC Qt5::Widgets)
target_precompile_headers(sep_qt_pch PRIVATE
  <QtCore/QObject> <QtCore/QString> <QtCore/QStringList> <QtCore/QVariant> <QtCore/QTimer>
  <QtCore/QSettings> <QtGui/QIcon> <QtWidgets/QWidget> <QtWidgets/QApplication>
  <QtWidgets/QMainWindow> <QtWidgets/QMenu> <QtWidgets/QAction>
  <map> <memory> <string> <vector>)

# Gives target the shared Qt precompiled header.
function(sep_use_qt_pch target)
  target_link_libraries(${target} PRIVATE Qt5::Widgets)
  target_precompile_headers(${target} REUSE_FROM sep_qt_pch)
endfunction()
