#pragma once

/// Requests that open the screens of the daily work. Areas with more requests get a header of
/// their own beside this one.
namespace quillary {

struct OpenDiary {};
struct OpenAbout {};
struct OpenODBCConnection {};

}  // namespace quillary
