#include "help/contents_rules.h"

#include "platform/database/records/database.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int levelIndent = 150;
}  // namespace

const QStringList& chapterCaptions() {
    static const QStringList captions{u"概述"_s,
                                      u"1 软件的安装"_s,
                                      u"1.1 网络下载版的安装"_s,
                                      u"2 软件的启动"_s,
                                      u"3 软件的设置"_s,
                                      u"3.1 软件设置窗口概述"_s,
                                      u"3.2 《图册设置》页面的设置"_s,
                                      u"3.3 《图片录入》页面的设置"_s,
                                      u"3.4 《图册编辑》页面的设置"_s,
                                      u"3.5 《图片转存》页面的设置"_s,
                                      u"4 软件的使用"_s,
                                      u"4.1 主窗口的使用"_s,
                                      u"4.2 窗口颜色配置"_s,
                                      u"4.3 图片处理窗口的使用"_s,
                                      u"4.4 使用帮助"_s,
                                      u"附注："_s};
    return captions;
}

int indentOf(const QString& caption) {
    return int(caption.section(u' ', 0, 0).count(u'.')) * levelIndent;
}

int chapterAt(const std::vector<int>& starts, int position) {
    int found = 0;
    for (size_t i = 0; i < starts.size(); ++i)
        if (starts[i] >= 0 && starts[i] <= position) found = int(i);
    return found;
}

int chapterTop(int index) {
    return index * entryPitch + 60;
}

QString sectionKey(const QString& caption) {
    return caption.left(3).section(u' ', 0, 0);
}

QString sectionsSql(const QString& key) {
    return u"SELECT * FROM tcbz WHERE left(编号, 3) = "_s + quoted(key);
}

int contentsOverhang(int viewportHeight, int sectionsHeight) {
    return std::max(0, sectionsHeight + chaptersHeight - viewportHeight);
}
