#include "viewer/viewer_state.h"

#include "viewer/filters.h"

void ViewerState::forgetSelection() {
    albumRecordset = {};
    selectionCode = allPicturesCode;
    isNarrowed = false;
    pageStatusText.clear();
    pageShown = false;
    firstPictureIndex = 0;
    pictureCount = 0;
    pageCount = 0;
}

int visitAll(Recordset& records) {
    if (records.RecordCount() > 0) {
        records.MoveLast();
        records.MoveFirst();
    }
    return records.RecordCount();
}
