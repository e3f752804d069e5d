#pragma once

#include "platform/picture/formats/any_picture.h"

// The formats that the toolkit decodes within this process. Both look at the headers before anything is decoded, and
// throw `Error` with `name` when the picture cannot be read.

AnyPicture readPng(QIODevice& device, const QString& name);
AnyPicture readGif(QIODevice& device, const QString& name);
