#include "kelNotify/Notify.h"

#include "kelNotify/NotifyStreamBuffer.h"

#include <array>
#include <iostream>

namespace kelNotify
{

namespace
{

class StandardErrorHandler : public NotifyHandler
{
public:
  void notify(NotifySeverity severity, const std::string& line) override
  {
    std::cerr << severityName(severity) << ": " << line << std::endl;
  }
};

// A stream that drops everything, for severities below the level.
class NullBuffer : public std::streambuf
{
protected:
  int overflow(int c) override { return traits_type::not_eof(c); }
};

struct NotifyState
{
  NotifySeverity level = NOTIFY_NOTICE;
  std::shared_ptr<NotifyHandler> handler = std::make_shared<StandardErrorHandler>();
};

NotifyState& state()
{
  static NotifyState s;
  return s;
}

} // namespace

const char* severityName(NotifySeverity severity)
{
  static const char* const NAMES[] = {"ALWAYS", "FATAL", "ERROR", "WARN", "NOTICE", "INFO", "DEBUG_INFO", "DEBUG_FP"};
  const int i = static_cast<int>(severity);
  return i >= 0 && i <= NOTIFY_DEBUG_FP ? NAMES[i] : "UNKNOWN";
}

void setNotifyLevel(NotifySeverity level) { state().level = level; }

NotifySeverity notifyLevel() { return state().level; }

bool isNotifyEnabled(NotifySeverity severity) { return severity <= state().level; }

void setNotifyHandler(std::shared_ptr<NotifyHandler> handler)
{
  state().handler = handler ? std::move(handler) : std::make_shared<StandardErrorHandler>();
}

std::shared_ptr<NotifyHandler> notifyHandler() { return state().handler; }

std::ostream& notify(NotifySeverity severity)
{
  static NullBuffer nullBuffer;
  static std::ostream nullStream(&nullBuffer);
  static std::array<NotifyStreamBuffer, NOTIFY_DEBUG_FP + 1> buffers = {
    NotifyStreamBuffer(NOTIFY_ALWAYS), NotifyStreamBuffer(NOTIFY_FATAL),  NotifyStreamBuffer(NOTIFY_ERROR),
    NotifyStreamBuffer(NOTIFY_WARN),   NotifyStreamBuffer(NOTIFY_NOTICE), NotifyStreamBuffer(NOTIFY_INFO),
    NotifyStreamBuffer(NOTIFY_DEBUG_INFO), NotifyStreamBuffer(NOTIFY_DEBUG_FP)};
  static std::array<std::ostream*, NOTIFY_DEBUG_FP + 1> streams = [] {
    std::array<std::ostream*, NOTIFY_DEBUG_FP + 1> s{};
    for (std::size_t i = 0; i < s.size(); ++i)
      s[i] = new std::ostream(&buffers[i]); // lives as long as the process
    return s;
  }();
  const int i = static_cast<int>(severity);
  if (i < 0 || i > NOTIFY_DEBUG_FP || !isNotifyEnabled(severity))
    return nullStream;
  return *streams[i];
}

} // namespace kelNotify
