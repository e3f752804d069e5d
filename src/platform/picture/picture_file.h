#pragma once

class QFile;

/// Opens a picture's file for reading. Throws `Error` that names the file when it is missing, no file at all (a folder,
/// a pipe, a device, or a link to one) or not to be read.
void openPicture(QFile& file);
