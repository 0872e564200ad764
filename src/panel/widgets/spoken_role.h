// What a screen reader calls the controls that the toolkit does not know.
#pragma once

// From here on a Surface is a graphic; to the toolkit it is any widget. Once is enough.
void SpeakOfSurfacesAsPictures();
