# Headers that take most of a file's time to read. Every file includes what it uses all the same: the preset
# "plain" builds without these.
set(core_headers
  <QByteArray> <QDateTime> <QDir> <QFile> <QFileInfo> <QHash> <QList> <QObject> <QSet> <QString> <QStringList>
  <QThread> <QTimer> <QUuid> <QVariant>
  <algorithm> <chrono> <functional> <memory> <mutex> <optional> <utility> <variant> <vector>)
set(widget_headers
  <QAbstractItemModel> <QApplication> <QBoxLayout> <QDialog> <QEvent> <QIcon> <QLabel> <QLineEdit> <QListView>
  <QPainter> <QPushButton> <QStyledItemDelegate> <QWidget>)
set(test_headers <QSignalSpy> <QTemporaryDir> <QTest>)
set(test_links Qt6::Core Qt6::Gui Qt6::Network Qt6::Test)

morvak_precompiled(core HEADERS ${core_headers} LINKS Qt6::Core)
morvak_precompiled(widgets HEADERS ${core_headers} ${widget_headers} LINKS Qt6::Widgets)
if(MORVAK_TESTS)
  morvak_precompiled(tests HEADERS ${core_headers} ${test_headers} LINKS ${test_links})
  morvak_precompiled(widget_tests HEADERS ${core_headers} ${widget_headers} ${test_headers}
                     LINKS Qt6::Widgets ${test_links})
  morvak_build_fast(morvak_precompiled_tests)
  morvak_build_fast(morvak_precompiled_widget_tests)
endif()
