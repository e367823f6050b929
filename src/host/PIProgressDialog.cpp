#include "host/PIProgressDialog.h"

#include "host/PIServerSelectors.h"
#include "host/RequestRecords.h"

namespace PIGUI
{

PIProgressDialog::PIProgressDialog(PIWindow*, const std::string& title, const std::string& label, int mode, int count)
{
  auto r = PIRequest::catchAll(PISelector::PROGRESS_CREATE, {count, mode});
  r.strings = {title, label};
  handle(PISF_PROGRESS_DIALOG, &r);
  setHostHandle(r.pointerAt(0));
}

int PIProgressDialog::command_(int selector, int value)
{
  auto r = PIRequest::catchAll(selector, {value});
  r.pointers = {hostHandle()};
  return PIRequest::send(PISF_PROGRESS_DIALOG, r);
}

int PIProgressDialog::show() { return command_(PISelector::PROGRESS_SHOW); }
int PIProgressDialog::setMaximum(int maximum) { return command_(PISelector::PROGRESS_SET_MAXIMUM, maximum); }
int PIProgressDialog::setValue(int value) { return command_(PISelector::PROGRESS_SET_VALUE, value); }
int PIProgressDialog::runWhileEvents() { return command_(PISelector::PROGRESS_RUN_WHILE_EVENTS); }

bool PIProgressDialog::isCanceled()
{
  auto r = PIRequest::catchAll(PISelector::PROGRESS_IS_CANCELED);
  r.pointers = {hostHandle()};
  handle(PISF_PROGRESS_DIALOG, &r);
  return r.integerAt(1) != 0;
}

} // namespace PIGUI
