#include "toolkit/CNewFileSelector.h"

#include "toolkit/CFrame.h"

namespace tessel8 {

bool CFileExtension::isTypeOf(std::string_view name) const {
    return name == "CFileExtension" || CBaseObject::isTypeOf(name);
}

Shared<CNewFileSelector> CNewFileSelector::create(CFrame* frame, FileDialogKind kind) {
    return frame ? Shared<CNewFileSelector>::adopt(new CNewFileSelector(frame, kind))
                 : Shared<CNewFileSelector>();
}

bool CNewFileSelector::isTypeOf(std::string_view name) const {
    return name == "CNewFileSelector" || CBaseObject::isTypeOf(name);
}

void CNewFileSelector::addFileExtension(const CFileExtension& extension) {
    settings.typeName = extension.getDescription();
    settings.extension = extension.getExtension();
}

void CNewFileSelector::run(std::function<void(CNewFileSelector&)> ended) {
    selected.clear();
    frame->openFileDialog(settings, [self = Shared<CNewFileSelector>(this),
                                     ended = std::move(ended)](const std::string& path) {
        self->selected = path;
        ended(*self);
    });
}

const std::string* CNewFileSelector::getSelectedFile(int32_t index) const {
    return index == 0 && !selected.empty() ? &selected : nullptr;
}

}  // namespace tessel8
