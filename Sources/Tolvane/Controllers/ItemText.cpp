#include <Controllers/ItemText.h>

namespace tolvane {

QString iconName(FileNode::Kind kind) {
    switch (kind) {
    case FileNode::Kind::directory:
        return QStringLiteral("folder");
    case FileNode::Kind::regular:
        return QStringLiteral("text-x-generic");
    case FileNode::Kind::symlink:
        return QStringLiteral("emblem-symbolic-link");
    case FileNode::Kind::other:
        break;
    }
    return QStringLiteral("other");
}

QString kindText(FileNode::Kind kind) {
    switch (kind) {
    case FileNode::Kind::directory:
        return QStringLiteral("Folder");
    case FileNode::Kind::regular:
        return QStringLiteral("File");
    case FileNode::Kind::symlink:
        return QStringLiteral("Symbolic link");
    case FileNode::Kind::other:
        break;
    }
    return QStringLiteral("Device, socket or pipe");
}

}
