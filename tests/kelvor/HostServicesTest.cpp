#include "host/CustomCallbackFunctor.h"
#include "host/PICommon.h"
#include "host/PIData.h"
#include "host/PIIcon.h"
#include "host/PIKELVOR.h"
#include "host/PIMenuItem.h"
#include "host/PluginExports.h"
#include "host/PIProgressDialog.h"
#include "host/PURegistry.h"
#include "host/PURegistryCoordReferenceFrame.h"
#include "host/ServiceClient.h"
#include "host/SignalInterface.h"
#include "support/ServerFixture.h"

#include <QSettings>

namespace
{

class Commands
{
public:
  int run(PIObject*, void*) { return ++runs; }
  int runs = 0;
};

// Adds what a plug-in's right-click observer would: items at weights, a sub-menu, a rule.
class MenuBuilder : public PIKELVOR::ContextMenuCallback
{
public:
  explicit MenuBuilder(FunctorTwoParams__* functor) : functor_(functor) {}
  void menuRequested(PIKELVOR::WhatWasClicked what, unsigned long id, void* menu) override
  {
    calls.push_back("one:" + std::to_string(what) + ":" + std::to_string(id));
    void* sub = PIKELVOR::addContextMenuSubMenu(menu, "Scenario Editor", 750);
    PIKELVOR::addContextMenuItem(sub, "Remove Duplicate Points", functor_, 100);
    lastMenu = menu;
  }
  void menuRequested(PIKELVOR::WhatWasClicked what, const std::vector<unsigned long>& ids,
                     const std::map<std::string, std::string>&, void* menu) override
  {
    calls.push_back("many:" + std::to_string(what) + ":" + std::to_string(ids.size()));
    PIKELVOR::addContextMenuItem(menu, "Delete", functor_, 500);
    PIKELVOR::addContextMenuSeparator(menu, 400);
    PIKELVOR::addContextMenuItem(menu, "Decimate...", functor_, 200, nullptr, false);
    PIKELVOR::addContextMenuItem(menu, "Rename", functor_, 200);
    lastMenu = menu;
  }
  std::vector<std::string> calls;
  void* lastMenu = nullptr;

private:
  FunctorTwoParams__* functor_;
};

class HostServicesTest : public ServerFixture
{
protected:
  void TearDown() override
  {
    SPI_CleanUpPlugin();
    ServerFixture::TearDown();
  }
  Commands commands;
};

TEST_F(HostServicesTest, ApplicationWaitCursorNotificationsAndToasts)
{
  EXPECT_EQ(5, PICommon::getApplicationId());
  EXPECT_TRUE(PIKELVOR::runningInKELVOR10());
  PICommon::beginWaitCursor();
  PICommon::beginWaitCursor();
  EXPECT_EQ(2, services.waitCursorDepth);
  PICommon::endWaitCursor();
  PICommon::endWaitCursor();
  EXPECT_EQ(0, services.waitCursorDepth);
  PICommon::notify("Decimation skipping static platform P\n", PICommon::NOTIFY_WARN);
  PICommon::showToastNotification("Points Removed", PICommon::TOAST_MEDIUM);
  ASSERT_EQ(1u, services.notifications.size());
  EXPECT_EQ(3, services.notifications[0].second);
  ASSERT_EQ(1u, services.toasts.size());
  EXPECT_EQ("Points Removed", services.toasts[0].first);
  EXPECT_EQ(1, services.toasts[0].second);
}

TEST_F(HostServicesTest, RightClickMenusAreBuiltByTheCallbacksAndSortedByWeight)
{
  auto* functor = CustomCallbackFunctor<Commands>::create(&commands, &Commands::run);
  MenuBuilder builder(functor);
  ASSERT_EQ(0, PIKELVOR::registerContextMenuCallback(&builder));
  PIKELVOR::registerContextMenuCallback(&builder);
  EXPECT_EQ(1u, server.contextMenuCallbackCount()) << "registered once";

  auto list = server.buildContextMenu(PIKELVOR::CLICKED_ENTITY_LIST, {4, 5});
  std::vector<std::string> order;
  for (const auto* entry : list->sorted())
    order.push_back(entry->kind == kelvor::ContextMenu::Entry::SEPARATOR ? "---" : entry->text);
  EXPECT_EQ((std::vector<std::string>{"Decimate...", "Rename", "---", "Delete"}), order)
      << "lower weight stands higher; equal weights keep their order";
  EXPECT_FALSE(list->findItem("Decimate...")->enabled);
  EXPECT_EQ(1, kelvor::ContextMenu::activate(*list->findItem("Rename")));
  EXPECT_EQ(1, commands.runs);

  auto view = server.buildContextMenu(PIKELVOR::CLICKED_VIEW, {9});
  const auto* item = view->findItem("Remove Duplicate Points");
  ASSERT_NE(nullptr, item);
  EXPECT_EQ(750, view->sorted()[0]->weight);
  EXPECT_EQ((std::vector<std::string>{"many:3:2", "one:0:9"}), builder.calls);

  EXPECT_NE(0, PIKELVOR::addContextMenuItem(builder.lastMenu, "Late", functor, 1))
      << "a menu can only be filled while it is being built";
  EXPECT_EQ(0, PIKELVOR::removeContextMenuCallback(&builder));
  EXPECT_TRUE(server.buildContextMenu(PIKELVOR::CLICKED_ENTITY_LIST, {1})->empty());
}

TEST_F(HostServicesTest, PluginMenuItemsWithIconsLiveAsLongAsTheirWrapper)
{
  auto* functor = CustomCallbackFunctor<Commands>::create(&commands, &Commands::run);
  auto* item = new PIGUI::PIMenuItem(nullptr, "Scenario Editor...\t\tOpens a window to edit scenario data.", functor);
  ASSERT_EQ(1u, server.pluginMenu().items().size());
  const auto& entry = server.pluginMenu().items()[0];
  EXPECT_EQ("Scenario Editor...", kelvor::PluginMenu::label(entry));
  EXPECT_EQ("Opens a window to edit scenario data.", kelvor::PluginMenu::help(entry));

  const unsigned char png[] = {0x89, 'P', 'N', 'G', 0x0d, 0x0a, 0x1a, 0x0a};
  auto* icon = new PIGUI::PIIcon();
  ASSERT_EQ(0, icon->loadPNGByArray(png, sizeof(png)));
  ASSERT_EQ(0, item->setIcon(icon));
  EXPECT_EQ(std::string(reinterpret_cast<const char*>(png), sizeof(png)),
            server.iconBytes(server.pluginMenu().items()[0].icon));
  item->setEnabled(false);
  EXPECT_FALSE(server.pluginMenu().items()[0].enabled);
  EXPECT_EQ(1, kelvor::PluginMenu::activate(server.pluginMenu().items()[0]));
  EXPECT_EQ(2u, server.garbage().size()) << "both wrappers are in the host's garbage list";

  delete item;
  EXPECT_TRUE(server.pluginMenu().items().empty()) << "the wrapper's end destroys the host's item";
  delete icon;
  EXPECT_TRUE(server.garbage().empty());
}

TEST_F(HostServicesTest, ProgressDialogWithoutAWindow)
{
  auto* dialog = new PIGUI::PIProgressDialog(nullptr, "Decimating", "Decimating platforms...", 1, 3);
  dialog->setMaximum(3);
  dialog->show();
  dialog->setValue(2);
  dialog->runWhileEvents();
  ASSERT_EQ(1u, services.progress.size());
  const auto& state = services.progress.begin()->second;
  EXPECT_EQ("Decimating", state.title);
  EXPECT_TRUE(state.shown);
  EXPECT_EQ(2, state.value);
  EXPECT_EQ(1, state.eventRuns);
  EXPECT_FALSE(dialog->isCanceled());
  services.cancelProgress = true;
  EXPECT_TRUE(dialog->isCanceled());
  delete dialog;
  EXPECT_TRUE(services.progress.empty());
}

TEST_F(HostServicesTest, TheSignalServiceCarriesEntityDataModified)
{
  std::vector<UniqueID_t> received;
  server.signalService().setReceiver([&](auto signal, const std::vector<UniqueID_t>& ids) {
    EXPECT_EQ(PluginClient::Interfaces::SignalInterface::ENTITY_DATA_MODIFIED, signal);
    received = ids;
  });
  PICommon::BasicClient<PluginClient::Interfaces::SignalInterface> client;
  EXPECT_FALSE(client.bind("kelvorhost/NoSuchService/1.0")) << "a missing service is no error";
  EXPECT_EQ(nullptr, client.serviceInterface());
  ASSERT_TRUE(client.bind(PluginClient::Interfaces::SIGNAL_SERVICE_NAME));
  client.serviceInterface()->sendSignal(PluginClient::Interfaces::SignalInterface::ENTITY_DATA_MODIFIED, {3, 4});
  EXPECT_EQ((std::vector<UniqueID_t>{3, 4}), received);
  client.unbind();
  EXPECT_EQ(nullptr, client.serviceInterface());
}

TEST_F(HostServicesTest, RegistryDefaultsClampingAndBools)
{
  EXPECT_EQ(42, PURegistry::loadReg(42, "Absent"));
  EXPECT_EQ("fallback", PURegistry::loadReg("fallback", "Absent"));
  QSettings file(QString::fromStdString(registry.fileName()), QSettings::IniFormat);
  EXPECT_TRUE(file.allKeys().isEmpty()) << "reading an absent key writes nothing";

  PURegistry::saveReg("ConfirmDelete", false);
  EXPECT_FALSE(PURegistry::loadReg(true, "ConfirmDelete"));
  PURegistry::saveReg("Flag", std::string("5"));
  EXPECT_TRUE(PURegistry::loadReg(false, "Flag"));
  PURegistry::saveReg("Flag", std::string("yes"));
  EXPECT_FALSE(PURegistry::loadReg(true, "Flag")) << "a text that is no number is false";
  PURegistry::saveReg("Empty", std::string());
  EXPECT_TRUE(PURegistry::loadReg(true, "Empty")) << "an empty value reads as the default";

  PURegistry::saveReg("Window", 500);
  EXPECT_EQ(100, PURegistry::loadReg(5, "Window", 1, 100));
  PURegistry::saveReg("Window", -3);
  EXPECT_EQ(1, PURegistry::loadReg(5, "Window", 1, 100));
  PURegistry::saveReg("Window", 100);
  EXPECT_EQ(100, PURegistry::loadReg(5, "Window", 1, 100));

  PURegistry::saveReg("Ratio", 0.1);
  EXPECT_EQ(0.1, PURegistry::loadReg(0.0, "Ratio")) << "doubles read back exactly";
  PURegistry::saveReg("Colour", 0xFF8000FFu, true);
  EXPECT_EQ(0xFF8000FFu, PURegistry::loadReg(0u, "Colour"));

  PURegistry::PURegistryCoordReferenceFrame saved;
  PIData::PICoordReferenceFrame frame;
  frame.coordinateSystem = PI_COORDSYS_GTP;
  frame.latOrigin = 0.61;
  frame.tangentPlaneAngle = 0.25;
  frame.eciReferenceTime = 12.5;
  saved.setCoordReferenceFrame(frame);
  saved.saveValues("Transform/");
  PURegistry::PURegistryCoordReferenceFrame loaded("Transform/");
  loaded.loadValues();
  EXPECT_EQ(saved, loaded);
  PURegistry::PURegistryCoordReferenceFrame fresh;
  fresh.loadValues();
  EXPECT_EQ(PIData::PICoordReferenceFrame(), fresh.getCoordReferenceFrame()) << "absent keys keep the values";
}

TEST_F(HostServicesTest, TheViewPreferencesAndOverlays)
{
  double lat = 9.0, lon = 9.0;
  EXPECT_EQ(1, PIKELVOR::getMouseCursorLLA(&lat, &lon, nullptr, 1));
  EXPECT_EQ(9.0, lat) << "a cursor off the globe leaves the outputs alone";
  services.cursorOnGlobe = true;
  services.cursorLat = 0.5;
  services.cursorLon = -2.0;
  EXPECT_EQ(0, PIKELVOR::getMouseCursorLLA(&lat, &lon, nullptr, 1));
  EXPECT_EQ(0.5, lat);
  EXPECT_EQ(-2.0, lon);

  const long line = PIKELVOR::createAnimatedLine(0, 0, 0, 0.1, 0.1, 0);
  EXPECT_EQ(1u, services.lines.size());
  PIKELVOR::removeAnimatedLine(line);
  EXPECT_TRUE(services.lines.empty());
  PIKELVOR::tetherCamera(PIKELVOR::getCurrentViewport(), 7);
  EXPECT_EQ("Main View", services.tether.first);
  EXPECT_EQ(7u, services.tether.second);
  PIKELVOR::grabMouse();
  EXPECT_TRUE(services.mouseGrabbed);

  long rule = 0;
  ASSERT_EQ(0, PIKELVOR::addPrefRule("TrackDrawMode=Ribbon", PIKELVOR::PREF_RULE_SAVED, &rule));
  EXPECT_NE(0, rule);
  long session = 0;
  ASSERT_EQ(0, PIKELVOR::addPrefRule("ruleName=TracksWidth ruleValue=\"3\"", PIKELVOR::PREF_RULE_SESSION, &session));
  ASSERT_EQ(2u, store.preferenceRules().size());
  EXPECT_TRUE(store.preferenceRules()[0].saved);
  EXPECT_FALSE(store.preferenceRules()[1].saved) << "a session rule is never written to a file";
  EXPECT_NE(0, PIKELVOR::addPrefRule("", PIKELVOR::PREF_RULE_SAVED, &rule));
  EXPECT_EQ(0, PIKELVOR::removePrefRule(rule));
  EXPECT_NE(0, PIKELVOR::removePrefRule(rule));
  PIKELVOR::setPrefFlag(0, "Preview", true);
  EXPECT_TRUE(store.drawFlag(0, "Preview"));

  // Hiding a platform with its children reaches a beam's gate.
  const SampleEntities sample = createSampleEntities();
  EXPECT_EQ(0, PIKELVOR::setPrefDrawFlag(sample.platform, false, true));
  for (UniqueID_t id : {sample.platform, sample.beam, sample.gate})
    EXPECT_TRUE(store.drawFlag(id, "Hidden")) << id;
  EXPECT_EQ(0, PIKELVOR::setPrefDrawFlag(sample.platform, true, false));
  EXPECT_FALSE(store.drawFlag(sample.platform, "Hidden"));
  EXPECT_TRUE(store.drawFlag(sample.gate, "Hidden")) << "without its children the platform alone shows";
  EXPECT_NE(0, PIKELVOR::setPrefDrawFlag(987654, false, true)) << "an unknown entity";

  EXPECT_EQ(0, PIKELVOR::loadGOGFile("/tmp/track.gog"));
  std::vector<std::string> files;
  PIKELVOR::getAttachedGOGFiles(0, &files);
  EXPECT_EQ(std::vector<std::string>{"/tmp/track.gog"}, files);
  EXPECT_NE(0, PIKELVOR::loadGOGFile("/tmp/track.gog", 999)) << "an unknown entity";
  EXPECT_FALSE(PIKELVOR::getUseAlias(1));
}

} // namespace
