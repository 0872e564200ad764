#include "panel/widgets/spoken_role.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include "panel/widgets/surface.h"

namespace {

QAccessibleInterface* PictureOf(const QString& /*className*/, QObject* object) {
    auto* const surface = dynamic_cast<Surface*>(object);
    return surface == nullptr ? nullptr : new QAccessibleWidget(surface, QAccessible::Graphic);
}

}  // namespace

void SpeakOfSurfacesAsPictures() {
    QAccessible::installFactory(PictureOf);
}
