#pragma once

#include "settings/frame/frm_sz.h"

/// The window frmSz with its pages: 图册设置, 图片录入, 图册编辑 and 图片转存.
std::unique_ptr<frmSz> makeSettingsWindow(Windows& windows);
