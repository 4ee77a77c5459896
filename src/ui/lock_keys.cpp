#include "ui/lock_keys.h"

#include <xcb/xcb.h>

#include <QGuiApplication>
#include <cstdlib>
#include <memory>

namespace branok {

Lock_Keys Read_Lock_Keys() {
  const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  if (x11 == nullptr || x11->connection() == nullptr) return {};
  xcb_connection_t* const connection = x11->connection();
  const xcb_screen_t* const screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
  if (screen == nullptr) return {};
  const std::unique_ptr<xcb_query_pointer_reply_t, decltype(&std::free)> pointer(
      xcb_query_pointer_reply(connection, xcb_query_pointer(connection, screen->root), nullptr),
      &std::free);
  if (pointer == nullptr) return {};
  return {.caps = (pointer->mask & XCB_MOD_MASK_LOCK) != 0,
          .num = (pointer->mask & XCB_MOD_MASK_2) != 0};
}

}  // namespace branok
