// Whole entities through the clipboard's payload: what a copy writes, what a paste makes, and
// what a broken or hostile payload does (nothing worse than stopping).
#include "exchange/EntityMimeData.h"
#include "exchange/EntityPayloadReader.h"
#include "exchange/PasteTarget.h"
#include "exchange/PayloadStream.h"
#include "host/PIDataCategories.h"
#include "host/PIDataClock.h"
#include "host/PIDataEntities.h"
#include "host/PIDataPoints.h"
#include "host/PIDataTables.h"
#include "host/PIDataTableCreateHelper.h"
#include "plugin/ActionManager.h"
#include "plugin/ActionUtilities.h"
#include "plugin/MenuInfo.h"
#include "support/RandomScenario.h"
#include "support/ScenarioChecks.h"
#include "support/ServerFixture.h"
#include "store/DataTable.h"

#include <QAction>
#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QDataStream>
#include <QMimeData>

#include <cmath>
#include <memory>
#include <unistd.h>

using namespace QtSep;

namespace
{

/// The entities a paste makes for these top-level ones, in the order it makes them.
void walkInPasteOrder(UniqueID_t id, std::vector<UniqueID_t>& order)
{
  order.push_back(id);
  std::vector<UniqueID_t> children;
  const auto visit = [&](auto list) {
    children.clear();
    list(id, &children);
    for (UniqueID_t child : std::vector<UniqueID_t>(children))
      walkInPasteOrder(child, order);
  };
  const PIScenarioObjectType_t type = PIData::getObjectType(id);
  if (type == PI_PLATFORM_TYPE)
  {
    visit([](UniqueID_t h, std::vector<UniqueID_t>* ids) { PIData::getCustomRenderingList(h, ids); });
    visit([](UniqueID_t h, std::vector<UniqueID_t>* ids) { PIData::getBeamList(h, ids); });
    visit([](UniqueID_t h, std::vector<UniqueID_t>* ids) { PIData::getLaserList(h, ids); });
    visit([](UniqueID_t h, std::vector<UniqueID_t>* ids) { PIData::getLobList(h, ids); });
    visit([](UniqueID_t h, std::vector<UniqueID_t>* ids) { PIData::getProjectorList(h, ids); });
  }
  else if (type == PI_BEAM_TYPE)
  {
    visit([](UniqueID_t h, std::vector<UniqueID_t>* ids) { PIData::getGateList(h, ids); });
    visit([](UniqueID_t h, std::vector<UniqueID_t>* ids) { PIData::getProjectorList(h, ids); });
  }
}

std::vector<EntityInfo> infos(const std::vector<UniqueID_t>& ids)
{
  std::vector<EntityInfo> out;
  for (UniqueID_t id : ids)
    out.push_back(EntityInfo{id, getEntityType(id), getEntityName(id)});
  return out;
}

/// Makes the payload look written by another process.
void makeForeign(QMimeData& mime)
{
  QByteArray bytes = mime.data(CP_VERSION);
  // The process id: type (4 bytes), null flag (1), then the 64-bit value.
  const quint64 other = static_cast<quint64>(::getpid()) + 1;
  for (int i = 0; i < 8; ++i)
    bytes[5 + i] = static_cast<char>((other >> (8 * (7 - i))) & 0xFF);
  mime.setData(CP_VERSION, bytes);
}

std::unique_ptr<QMimeData> payloadOf(const QByteArray& bytes)
{
  auto mime = std::make_unique<QMimeData>();
  mime->setData(CP_VERSION, bytes);
  return mime;
}

class EntityExchange : public ServerFixture
{
protected:
  /// Top-level entities of the scenario: platforms and custom renderings of their own, in id order.
  static std::vector<UniqueID_t> topLevel()
  {
    std::vector<UniqueID_t> all;
    PIData::getObjectList(&all);
    std::vector<UniqueID_t> out;
    for (UniqueID_t id : all)
    {
      const PIScenarioObjectType_t type = PIData::getObjectType(id);
      if (type == PI_PLATFORM_TYPE || (type == PI_CUSTOM_RENDERING_TYPE && PIData::getObjectHost(id) == 0))
        out.push_back(id);
    }
    return out;
  }

  /**
   * Leaves out of the scenario what the payload does not carry, since the point editor's
   * tables do not show it: a platform's colours and states; a LOB group's colours and states
   * (its table shows draw styles); a projector's colours and on/off (its "State" is the
   * visibility); custom renderings on beams (a beam's record holds gates and projectors);
   * generic data's expiration; static rows and rows without a cell in data tables; tables
   * under the internal prefix.
   */
  void keepOnlyWhatThePayloadCarries()
  {
    for (UniqueID_t id : store.list(PI_ALL_TYPES))
    {
      kelvor::Entity* entity = store.editEntity(id);
      if (!entity)
        continue;
      if (entity->kind == PI_CUSTOM_RENDERING_TYPE && entity->host != 0 &&
          PIData::getObjectType(entity->host) == PI_BEAM_TYPE)
      {
        PIData::removeEntity(id, false);
        continue;
      }
      if (entity->kind == PI_PLATFORM_TYPE || entity->kind == PI_LOB_GROUP_TYPE || entity->kind == PI_PROJECTOR_TYPE)
      {
        entity->colors = {};
        entity->states = {};
        entity->projectorOnOff = {};
      }
      for (auto& item : entity->generic)
        item.expiration = -1.0;
      for (long tableId : std::vector<long>(entity->tables))
      {
        kelvor::DataTable* table = store.editTable(tableId);
        if (table->name().rfind(INTERNAL_TABLE_PREFIX, 0) == 0)
        {
          PIData::removeDataTable(tableId);
          continue;
        }
        std::vector<double> dropped;
        for (const auto& [time, row] : table->rows())
        {
          if (time < 0.0 || row.empty())
            dropped.push_back(time);
        }
        for (double time : dropped)
          table->removeRows(time, time);
      }
    }
  }

  /// A platform with two points, a category, a generic item, a table of two rows, and a beam
  /// with a gate: small enough to cut at every byte.
  UniqueID_t makeSmallPlatform(const std::string& name)
  {
    const UniqueID_t id = createTrack(name, 77, {10.0, 20.0});
    PIData::PICategoryDataPoint category{10.0, "Side", "Blue"};
    PIData::addCategoryData(id, &category);
    PIData::PIGenericDataPoint generic{15.0, -1.0, "Note", "checked"};
    PIData::createGenericData(id, &generic);
    PIData::PIDataTableCreateHelper helper;
    helper.addColumn("Fuel", UTILS::VT_DOUBLE);
    helper.addColumn("Mode", UTILS::VT_STRING);
    long table = -1;
    helper.create(id, "Telemetry", &table);
    PIData::DataTableRowT row(10.0);
    PIData::DataTableRowT::setCellValueT(row, firstColumn_(table), 0.5);
    PIData::addDataTableRow(table, row);
    PIData::DataTableRowT second(20.0);
    PIData::DataTableRowT::setCellValueT(second, firstColumn_(table) + 1, std::string("cruise"));
    PIData::addDataTableRow(table, second);
    PIData::PIBeamHeader beamHeader;
    beamHeader.name = "Radar";
    PIData::PIBeamPoint bp{0.1, 0.2, 1000.0, 10.0};
    const UniqueID_t beam = PIData::createBeam(id, &beamHeader, &bp, true);
    PIData::PIGateHeader gateHeader;
    gateHeader.name = "Gate";
    PIData::PIGatePoint gp{0, 0, 0.1, 0.1, 10, 100, 50, 10};
    PIData::createGate(beam, &gateHeader, &gp, true);
    return id;
  }

  static long firstColumn_(long table)
  {
    std::vector<long> columns;
    PIData::getDataTableColumns(table, &columns);
    return columns.empty() ? 0 : columns.front();
  }

  EntityMimeData exchange;
};

} // namespace

TEST_F(EntityExchange, EveryKindAndSeriesSurvivesACopyAndPaste)
{
  for (unsigned seed : {3u, 11u, 29u})
  {
    SeededRandom random(seed);
    RandomScenario().make(random);
    keepOnlyWhatThePayloadCarries();
    const std::vector<UniqueID_t> sources = topLevel();
    std::vector<UniqueID_t> expected;
    for (UniqueID_t id : sources)
      walkInPasteOrder(id, expected);

    std::unique_ptr<QMimeData> mime(exchange.copy(infos(sources)));
    ASSERT_TRUE(mime);
    ASSERT_EQ(0, exchange.paste({}, mime.get())) << exchange.pasteError();
    EXPECT_TRUE(exchange.sameProcess);
    EXPECT_EQ("", exchange.pasteError());

    // The copies stand beside their sources; a target still names the platform it named.
    const std::vector<std::string> differing = ScenarioChecks::differences(store, expected, exchange.pastedIds());
    EXPECT_TRUE(differing.empty()) << "seed " << seed << ":\n" << ::testing::PrintToString(differing);
    EXPECT_TRUE(ScenarioChecks::inconsistencies(store).empty());
  }
}

TEST_F(EntityExchange, APlatformPastedIntoAnotherHostOfAnotherYearKeepsItsTimesAndFitsTheClock)
{
  PIData::initializeScenario();
  PIData::setReferenceYear(2024);
  const UniqueID_t target = createTrack("Target", 5, {100.0});
  const UniqueID_t source = makeSmallPlatform("Eagle");
  std::vector<UniqueID_t> beams;
  PIData::getBeamList(source, &beams);
  PIData::setTarget(beams.front(), target, 12.0);
  std::unique_ptr<QMimeData> mime(exchange.copy(infos({target, source})));
  ASSERT_TRUE(mime);

  // Another host: its own store, another reference year, a clock far from the data.
  kelvor::ScenarioStore otherStore;
  kelvor::KelvorServer otherServer{otherStore, services, registry};
  g_FunctionMap = &otherServer;
  PIData::initializeScenario();
  PIData::setReferenceYear(2031);
  PIData::clockSetEnd(6000.0);
  PIData::clockSetBegin(5000.0);
  makeForeign(*mime);
  EXPECT_FALSE(exchange.isLocalData(mime.get()));
  ASSERT_EQ(0, exchange.paste({}, mime.get())) << exchange.pasteError();
  EXPECT_FALSE(exchange.sameProcess);

  const UniqueID_t pasted = PIData::findPlatform("Eagle");
  ASSERT_NE(0u, pasted);
  EXPECT_EQ(2031, PIData::getReferenceYear());
  EXPECT_EQ((std::vector<double>{10.0, 20.0}), pointTimes(pasted));
  EXPECT_EQ(77u, PIData::getOriginalId(pasted));
  // The clock fits the pasted data, which came from another process.
  EXPECT_DOUBLE_EQ(10.0, PIData::clockGetBegin());
  EXPECT_DOUBLE_EQ(100.0, PIData::clockGetEnd());
  // The target series travels by name: the pasted beam aims at the pasted target.
  std::vector<UniqueID_t> pastedBeams;
  PIData::getBeamList(pasted, &pastedBeams);
  ASSERT_EQ(1u, pastedBeams.size());
  std::vector<std::pair<double, UniqueID_t>> targets;
  PIData::getTargets(pastedBeams.front(), -1e9, 1e9, &targets);
  ASSERT_EQ(1u, targets.size());
  EXPECT_EQ(PIData::findPlatform("Target"), targets.front().second);
  std::vector<UniqueID_t> gates;
  PIData::getGateList(pastedBeams.front(), &gates);
  EXPECT_EQ(1u, gates.size());
  g_FunctionMap = &server;
}

TEST_F(EntityExchange, APasteFromThisProcessLeavesTheClockAlone)
{
  PIData::initializeScenario();
  const UniqueID_t source = makeSmallPlatform("Eagle");
  PIData::clockSetEnd(6000.0);
  PIData::clockSetBegin(5000.0);
  std::unique_ptr<QMimeData> mime(exchange.copy(infos({source})));
  EXPECT_TRUE(exchange.isLocalData(mime.get()));
  ASSERT_EQ(0, exchange.paste({}, mime.get()));
  EXPECT_DOUBLE_EQ(5000.0, PIData::clockGetBegin());
  EXPECT_DOUBLE_EQ(6000.0, PIData::clockGetEnd());
  // Two platforms of one name: a paste never renames.
  std::vector<UniqueID_t> platforms;
  PIData::getPlatformList(&platforms);
  ASSERT_EQ(2u, platforms.size());
  EXPECT_EQ(getEntityName(platforms[0]), getEntityName(platforms[1]));
}

TEST_F(EntityExchange, TheLayoutIsQVariantsOfADefaultDataStream)
{
  PIData::initializeScenario();
  PIData::PIPlatformHeader header;
  header.name = "Empty";
  header.iconFile = "";
  header.originalId = 9;
  const UniqueID_t id = PIData::createPlatform(&header, nullptr);
  PIData::PIDataTableCreateHelper helper;
  helper.addColumn("Hidden", UTILS::VT_INT32);
  long table = -1;
  helper.create(id, "__Internal_Hidden", &table);
  std::unique_ptr<QMimeData> mime(exchange.copy(infos({id})));
  ASSERT_TRUE(mime);
  EXPECT_EQ(QStringList{CP_VERSION}, mime->formats());

  // Read back with Qt's own reader, field by field.
  const QByteArray bytes = mime->data(CP_VERSION);
  QDataStream in(bytes);
  QVariantList fields;
  while (!in.atEnd())
  {
    QVariant field;
    in >> field;
    ASSERT_EQ(QDataStream::Ok, in.status());
    fields << field;
  }
  const QVariantList expected{
    QVariant(static_cast<qulonglong>(::getpid())), QVariant(false), QString(CP_PLATFORM), QString("Empty"),
    QString(""), QVariant(qulonglong(9)),
    // No points: rows 0, and the platform's columns.
    QVariant(0), fields.value(7),
    QString(CP_CATEGORY_DATA), QVariant(0), QVariant(3), QString(CP_DEFINITION_END),
    QString(CP_GENERIC_DATA), QVariant(0), QVariant(3), QString(CP_DEFINITION_END),
    // The internal table stays out, and out of the count.
    QString(CP_DATA_TABLES), QVariant(qulonglong(0)), QString(CP_DEFINITION_END),
    QString(CP_CHILDREN), QString(CP_DEFINITION_END), QString(CP_DEFINITION_END)};
  EXPECT_EQ(expected, fields);
  EXPECT_EQ(QMetaType::Int, fields.value(7).userType());
  EXPECT_GT(fields.value(7).toInt(), 10);
  // An empty text is written with the count 0, not as a null text.
  const QByteArray emptyText = QByteArray::fromHex("0000000a0000000000");
  EXPECT_TRUE(bytes.contains(emptyText));
}

TEST_F(EntityExchange, WhatMayBeCopiedTogetherAndWhereAChildMayBePasted)
{
  const SampleEntities made = createSampleEntities();
  PIData::PICustomRenderingHeader alone;
  alone.name = "Overlay";
  const UniqueID_t overlay = PIData::createCustomRendering(0, &alone);
  const UniqueID_t second = createTrack("Second", 2, {1.0});
  PIData::PIProjectorHeader projectorHeader;
  const UniqueID_t projector = PIData::createProjector(made.beam, &projectorHeader);

  EXPECT_TRUE(exchange.isValidCopy(infos({made.platform, second, overlay})));
  EXPECT_TRUE(exchange.isValidCopy(infos({made.gate})));
  EXPECT_FALSE(exchange.isValidCopy(infos({made.beam, made.gate})));
  EXPECT_FALSE(exchange.isValidCopy(infos({made.platform, made.beam})));
  EXPECT_FALSE(exchange.isValidCopy({}));
  EXPECT_FALSE(exchange.isValidCopy({EntityInfo{0, PI_ALL_TYPES, ""}}));
  EXPECT_EQ(nullptr, exchange.copy(infos({made.beam, made.gate})));

  const std::unique_ptr<QMimeData> gate(exchange.copy(infos({made.gate})));
  EXPECT_TRUE(exchange.isValidPaste(infos({made.beam}), gate.get()));
  EXPECT_FALSE(exchange.isValidPaste(infos({made.platform}), gate.get()));
  EXPECT_FALSE(exchange.isValidPaste(infos({made.beam, made.beam}), gate.get()));
  EXPECT_FALSE(exchange.isValidPaste({}, gate.get()));
  const std::unique_ptr<QMimeData> proj(exchange.copy(infos({projector})));
  EXPECT_TRUE(exchange.isValidPaste(infos({made.beam}), proj.get()));
  EXPECT_TRUE(exchange.isValidPaste(infos({second}), proj.get()));
  EXPECT_FALSE(exchange.isValidPaste(infos({made.gate}), proj.get()));
  const std::unique_ptr<QMimeData> beam(exchange.copy(infos({made.beam})));
  EXPECT_TRUE(exchange.isValidPaste(infos({second}), beam.get()));
  EXPECT_FALSE(exchange.isValidPaste(infos({made.beam}), beam.get()));
  // A top-level payload goes anywhere, also with no target.
  const std::unique_ptr<QMimeData> platforms(exchange.copy(infos({made.platform, overlay})));
  EXPECT_TRUE(exchange.isValidPaste({}, platforms.get()));
  EXPECT_TRUE(exchange.isValidPaste(infos({made.gate}), platforms.get()));
  // Text under another type is no payload.
  QMimeData text;
  text.setText("Platform Definition");
  EXPECT_FALSE(exchange.isValidPaste({}, &text));
  EXPECT_FALSE(exchange.isValidPaste({}, nullptr));
  EXPECT_FALSE(exchange.isLocalData(&text));

  // The gate pasted on the other beam: whole, with its points.
  const UniqueID_t otherBeam = [&] {
    PIData::PIBeamHeader header;
    header.name = "Other";
    PIData::PIBeamPoint point{0, 0, 1, 1};
    return PIData::createBeam(second, &header, &point, true);
  }();
  ASSERT_EQ(0, exchange.paste(infos({otherBeam}), gate.get()));
  std::vector<UniqueID_t> gates;
  PIData::getGateList(otherBeam, &gates);
  ASSERT_EQ(1u, gates.size());
  EXPECT_EQ("Gate", getEntityName(gates.front()));
  std::vector<PIData::PIGatePoint> points;
  PIData::getDataPoints(gates.front(), -1e9, 1e9, &points);
  ASSERT_EQ(1u, points.size());
  EXPECT_DOUBLE_EQ(10.0, points.front().time);
  EXPECT_DOUBLE_EQ(0.5, points.front().centroid);
}

namespace
{

/// The offsets where each field of a payload starts, as Qt's own reader finds them, and its end.
std::vector<int> fieldStarts(const QByteArray& bytes)
{
  QBuffer buffer;
  buffer.setData(bytes);
  buffer.open(QIODevice::ReadOnly);
  QDataStream in(&buffer);
  std::vector<int> starts;
  while (!in.atEnd())
  {
    starts.push_back(static_cast<int>(buffer.pos()));
    QVariant field;
    in >> field;
  }
  starts.push_back(static_cast<int>(buffer.pos()));
  return starts;
}

/// Keeps a paste in memory: counts what is made and what is committed.
class CountingTarget : public PasteTarget
{
public:
  unsigned long createPlatform(const PIData::PIPlatformHeader&) override { return ++made; }
  unsigned long createBeam(unsigned long, const PIData::PIBeamHeader&) override { return ++made; }
  unsigned long createGate(unsigned long, const PIData::PIGateHeader&) override { return ++made; }
  unsigned long createLaser(unsigned long, const PIData::PILaserHeader&) override { return ++made; }
  unsigned long createLob(unsigned long, const PIData::PILobHeader&) override { return ++made; }
  unsigned long createProjector(unsigned long, const PIData::PIProjectorHeader&) override { return ++made; }
  unsigned long createCustomRendering(unsigned long, const PIData::PICustomRenderingHeader&) override { return ++made; }
  void openTable(unsigned long, Table) override {}
  bool openDataTable(unsigned long, const std::string&, const std::vector<Column>&) override { return true; }
  void addRow(int) override {}
  int setCell(int, int, const QVariant&) override { return 0; }
  void commit() override { ++commits; }

  unsigned long made = 0;
  int commits = 0;
};

} // namespace

TEST_F(EntityExchange, APayloadCutAtAnyByteStopsCleanlyAndKeepsWhatWasMade)
{
  PIData::initializeScenario();
  const UniqueID_t first = makeSmallPlatform("First");
  const UniqueID_t second = makeSmallPlatform("Second");
  std::unique_ptr<QMimeData> whole(exchange.copy(infos({first, second})));
  std::unique_ptr<QMimeData> firstOnly(exchange.copy(infos({first})));
  makeForeign(*whole);
  const QByteArray bytes = whole->data(CP_VERSION);
  // Cut where a record ends, the payload is a whole one: of no entity after the process id
  // and child flag (19 bytes), or of the first platform.
  const std::map<int, std::size_t> wholeAt{{19, 0u}, {firstOnly->data(CP_VERSION).size(), 3u}};

  // The reader, cut at every byte: only the whole payloads read to their end.
  for (int length = 0; length < bytes.size(); ++length)
  {
    PayloadStream in(bytes.left(length));
    unsigned long process = 0;
    bool child = false;
    if (!in.readUnsignedLong(process) || !in.readBool(child))
    {
      EXPECT_LT(length, 19);
      continue;
    }
    CountingTarget target;
    EntityPayloadReader reader(in, target, false);
    const int status = reader.pasteTopLevel();
    EXPECT_EQ(wholeAt.count(length) ? 0 : 1, status) << "cut at " << length;
    EXPECT_EQ(status != 0, !reader.reason().empty()) << "cut at " << length;
    EXPECT_LE(target.made, 6u);
  }

  // Pasted into the host at the start of every field and inside it: what was made stays, and
  // the scenario holds together.
  for (int start : fieldStarts(bytes))
  {
    for (int length : {start, start + 1})
    {
      if (length >= bytes.size())
        continue;
      PIData::initializeScenario();
      const auto cut = payloadOf(bytes.left(length));
      const int status = exchange.paste({}, cut.get());
      if (wholeAt.count(length))
      {
        EXPECT_EQ(0, status);
        EXPECT_EQ(wholeAt.at(length), exchange.pastedIds().size());
      }
      else
      {
        ASSERT_EQ(1, status) << "cut at " << length;
        EXPECT_LE(exchange.pastedIds().size(), 6u);
        EXPECT_TRUE(length == 0 || !exchange.pasteError().empty()) << "cut at " << length;
      }
      const auto wrong = ScenarioChecks::inconsistencies(store);
      ASSERT_TRUE(wrong.empty()) << "cut at " << length << ": " << wrong.front();
    }
  }
}

TEST_F(EntityExchange, HostilePayloadsPasteNothingMoreAndSayWhy)
{
  PIData::initializeScenario();
  const auto header = [](bool child) {
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << QVariant(qulonglong(1)) << QVariant(child);
    return bytes;
  };
  const auto withFields = [&](std::initializer_list<QVariant> fields) {
    QByteArray bytes = header(false);
    QDataStream out(&bytes, QIODevice::Append);
    for (const QVariant& field : fields)
      out << field;
    return bytes;
  };
  struct Case
  {
    const char* what;
    QByteArray bytes;
    const char* reason;
  };
  const std::vector<Case> cases{
    {"an unknown record", withFields({QString("Tank Definition")}), "Tank Definition"},
    {"a name of the wrong type", withFields({QString(CP_PLATFORM), QVariant(5)}), "expected a text"},
    {"a text longer than the payload", header(false) + QByteArray::fromHex("0000000a00ffffff00"), "bytes where fewer remain"},
    {"a list longer than the payload",
     withFields({QString(CP_PLATFORM), QString("P"), QString("icon"), QVariant(qulonglong(1)), QVariant(1),
                 QVariant(1)}) + QByteArray::fromHex("00000009007fffffff"),
     "items in fewer bytes"},
    {"a value of a type no payload holds", header(false) + QByteArray::fromHex("0000004000"), "type 64"},
    {"a table of negative rows", withFields({QString(CP_PLATFORM), QString("P"), QString("icon"),
                                             QVariant(qulonglong(1)), QVariant(-4), QVariant(13)}),
     "-4 rows"},
    {"a cell of three forms", withFields({QString(CP_PLATFORM), QString("P"), QString("icon"), QVariant(qulonglong(1)),
                                          QVariant(1), QVariant(1), QVariantList{1.0, 2.0, 3.0}, QString("x")}),
     "3 forms"},
    {"a time that is no number", withFields({QString(CP_PLATFORM), QString("P"), QString("icon"),
                                              QVariant(qulonglong(1)), QVariant(1), QVariant(13),
                                              QVariant(std::nan("")), QString(CP_CATEGORY_DATA)}),
     "platform \"P\", its data: row 1, column 1"},
    {"rows promised and not given", withFields({QString(CP_PLATFORM), QString("P"), QString("icon"),
                                                QVariant(qulonglong(1)), QVariant(2000000000), QVariant(13)}),
     "ends"},
  };
  for (const Case& c : cases)
  {
    const auto mime = payloadOf(c.bytes);
    EXPECT_EQ(1, exchange.paste({}, mime.get())) << c.what;
    EXPECT_NE(std::string::npos, exchange.pasteError().find(c.reason)) << c.what << ": " << exchange.pasteError();
    EXPECT_TRUE(ScenarioChecks::inconsistencies(store).empty()) << c.what;
  }
}

TEST_F(EntityExchange, CopyAndPasteEntityAreOfferedInTheEditorsMenuOnly)
{
  const SampleEntities made = createSampleEntities();
  ActionManager manager(nullptr, nullptr);
  const auto ownMenu = [&](const std::vector<UniqueID_t>& ids) {
    std::vector<MenuInfo*> items;
    manager.menuRequested(ids, items);
    std::map<std::string, int> texts;
    for (MenuInfo* item : items)
    {
      if (auto* action = dynamic_cast<ActionInfo*>(item))
        texts[action->action()->text().toStdString()] = item->weight();
      delete item;
    }
    return texts;
  };
  QApplication::clipboard()->clear();
  auto texts = ownMenu({made.platform});
  EXPECT_EQ(250, texts["Copy Entity"]);
  EXPECT_EQ(0u, texts.count("Paste Entity"));

  // Copy from the menu: the clipboard holds the platform; paste it on the scenario.
  std::vector<MenuInfo*> items;
  manager.menuRequested({made.platform}, items);
  for (MenuInfo* item : items)
  {
    if (auto* action = dynamic_cast<ActionInfo*>(item); action && action->action()->text() == "Copy Entity")
      action->action()->trigger();
    delete item;
  }
  ASSERT_TRUE(QApplication::clipboard()->mimeData()->hasFormat(CP_VERSION));
  texts = ownMenu({});
  EXPECT_EQ(255, texts["Paste Entity"]);
  items.clear();
  manager.menuRequested({}, items);
  for (MenuInfo* item : items)
  {
    if (auto* action = dynamic_cast<ActionInfo*>(item); action && action->action()->text() == "Paste Entity")
      action->action()->trigger();
    delete item;
  }
  std::vector<UniqueID_t> platforms;
  PIData::getPlatformList(&platforms);
  EXPECT_EQ(2u, platforms.size());
  EXPECT_EQ(0u, ownMenu({made.beam, made.gate}).count("Copy Entity"));
}
