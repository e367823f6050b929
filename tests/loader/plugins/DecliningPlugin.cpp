// A plug-in that declines to start.
#include "LoggingPlugin.h"

PIApplication_v0_5_0* createTestPlugin()
{
  auto* plugin = new LoggingPlugin("Declining");
  plugin->startResult = 1;
  return plugin;
}
