<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ar" sourcelanguage="en">
<context>
    <name>qf::ActionChoices</name>
    <message>
        <source>The group that the menu shows</source>
        <translation>المجموعة التي تعرضها القائمة</translation>
    </message>
</context>
<context>
    <name>qf::AgentShortcuts</name>
    <message>
        <source>Not active: Quenfold&apos;s menu does not run</source>
        <translation>غير فعّال: قائمة Quenfold لا تعمل</translation>
    </message>
    <message>
        <source>Quenfold&apos;s menu does not answer</source>
        <translation>قائمة Quenfold لا تستجيب</translation>
    </message>
    <message>
        <source>Active</source>
        <translation>فعّال</translation>
    </message>
    <message>
        <source>No keys are recorded</source>
        <translation>لم تُسجّل مفاتيح</translation>
    </message>
    <message>
        <source>Not active: these keys are needed for typing; add Ctrl or Super</source>
        <translation>غير فعّال: هذه المفاتيح لازمة للكتابة؛ أضف Ctrl أو Super</translation>
    </message>
    <message>
        <source>Not active: a shortcut further down has the same keys</source>
        <translation>غير فعّال: لاختصار أسفله المفاتيح نفسها</translation>
    </message>
    <message>
        <source>Not active: %1</source>
        <translation>غير فعّال: %1</translation>
    </message>
</context>
<context>
    <name>qf::AgentStatus</name>
    <message>
        <source>The menu is not installed: there is no entry %1.desktop.</source>
        <translation>القائمة غير مثبتة: لا يوجد مدخل ‎%1.desktop.</translation>
    </message>
</context>
<context>
    <name>qf::Autostart</name>
    <message>
        <source>%1 is missing: install Quenfold anew.</source>
        <translation>%1 مفقود: أعد تثبيت Quenfold.</translation>
    </message>
    <message>
        <source>There is no home folder that could hold the start at login: see that HOME is set.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>qf::CleanerEditor</name>
    <message>
        <source>Name</source>
        <translation>الاسم</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>الوصف</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>الاسم</translation>
    </message>
    <message>
        <source>&amp;Description</source>
        <translation>الوصف</translation>
    </message>
    <message>
        <source>Col&amp;our</source>
        <translation>اللون</translation>
    </message>
    <message>
        <source>Add &amp;Cleaner</source>
        <translation>إضافة منظّف</translation>
    </message>
    <message>
        <source>Add Find and &amp;Replace</source>
        <translation>إضافة بحث واستبدال</translation>
    </message>
    <message>
        <source>Not in force yet, the stored steps count: %1</source>
        <translation>لم يسرِ بعد، وتبقى الخطوات المحفوظة سارية: %1</translation>
    </message>
    <message>
        <source>Steps</source>
        <translation>الخطوات</translation>
    </message>
</context>
<context>
    <name>qf::CleanerFinder</name>
    <message>
        <source>Cleaners</source>
        <translation>المنظّفات</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>بحث</translation>
    </message>
    <message>
        <source>Search cleaners</source>
        <translation>البحث في المنظّفات</translation>
    </message>
</context>
<context>
    <name>qf::CleanerListModel</name>
    <message>
        <source>%1, your own</source>
        <translation>%1، من صنعك</translation>
    </message>
</context>
<context>
    <name>qf::CleanersPage</name>
    <message>
        <source>Ne&amp;w</source>
        <translation>جديد</translation>
    </message>
    <message>
        <source>Co&amp;py</source>
        <translation>نسخ</translation>
    </message>
    <message>
        <source>Makes a cleaner of your own that begins as this one</source>
        <translation>ينشئ منظّفًا خاصًا بك يبدأ مثل هذا</translation>
    </message>
    <message>
        <source>New Cleaner</source>
        <translation>منظّف جديد</translation>
    </message>
    <message>
        <source>These steps cannot be carried out yet.</source>
        <translation>لا يمكن تنفيذ هذه الخطوات بعد.</translation>
    </message>
    <message>
        <source>This one works on the clipboard alone.</source>
        <translation>هذا يعمل على الحافظة فقط.</translation>
    </message>
    <message>
        <source>Remove Cleaner</source>
        <translation>إزالة المنظّف</translation>
    </message>
    <message>
        <source>Remove the cleaner “%1”?</source>
        <translation>هل تريد إزالة المنظّف «%1»؟</translation>
    </message>
    <message>
        <source>Remo&amp;ve</source>
        <translation>إزالة</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>إزالة</translation>
    </message>
    <message>
        <source>The clipboard is clean.</source>
        <translation>تم تنظيف الحافظة.</translation>
    </message>
    <message>
        <source>Clean the Clip&amp;board</source>
        <translation>نظّف الحافظة</translation>
    </message>
</context>
<context>
    <name>qf::ColorBox</name>
    <message>
        <source>Colour</source>
        <translation>اللون</translation>
    </message>
    <message>
        <source>Menu&apos;s own</source>
        <translation>لون القائمة</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>أحمر</translation>
    </message>
    <message>
        <source>Orange</source>
        <translation>برتقالي</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>أخضر</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>أزرق</translation>
    </message>
    <message>
        <source>Purple</source>
        <translation>بنفسجي</translation>
    </message>
    <message>
        <source>Grey</source>
        <translation>رمادي</translation>
    </message>
    <message>
        <source>Other…</source>
        <translation>أخرى…</translation>
    </message>
</context>
<context>
    <name>qf::GroupEntriesModel</name>
    <message>
        <source>There is no cleaner %1</source>
        <translation>لا يوجد منظّف %1</translation>
    </message>
    <message>
        <source>Nothing</source>
        <translation>لا شيء</translation>
    </message>
    <message>
        <source>Separator</source>
        <translation>فاصل</translation>
    </message>
    <message>
        <source>Label %1</source>
        <translation>عنوان %1</translation>
    </message>
</context>
<context>
    <name>qf::GroupsPage</name>
    <message>
        <source>Ne&amp;w Group</source>
        <translation>مجموعة جديدة</translation>
    </message>
    <message>
        <source>&amp;Groups</source>
        <translation>المجموعات</translation>
    </message>
    <message>
        <source>Name of the group</source>
        <translation>اسم المجموعة</translation>
    </message>
    <message>
        <source>Text of the label</source>
        <translation>نص العنوان</translation>
    </message>
    <message>
        <source>Add &amp;Label</source>
        <translation>إضافة عنوان</translation>
    </message>
    <message>
        <source>Add &amp;Separator</source>
        <translation>إضافة فاصل</translation>
    </message>
    <message>
        <source>Label</source>
        <translation>عنوان</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>الاسم</translation>
    </message>
    <message>
        <source>Label &amp;text</source>
        <translation>نص العنوان</translation>
    </message>
    <message>
        <source>Col&amp;our</source>
        <translation>اللون</translation>
    </message>
    <message>
        <source>New Group</source>
        <translation>مجموعة جديدة</translation>
    </message>
    <message>
        <source>Remove Group</source>
        <translation>إزالة المجموعة</translation>
    </message>
    <message>
        <source>Remove the group “%1”? Its cleaners stay.</source>
        <translation>هل تريد إزالة المجموعة «%1»؟ ستبقى منظّفاتها.</translation>
    </message>
    <message>
        <source>Groups</source>
        <translation>المجموعات</translation>
    </message>
    <message>
        <source>In the group</source>
        <translation>في المجموعة</translation>
    </message>
    <message>
        <source>&amp;Add to the Group</source>
        <translation>إضافة إلى المجموعة</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>إزالة</translation>
    </message>
</context>
<context>
    <name>qf::MenuPage</name>
    <message>
        <source>Folded page</source>
        <translation>صفحة مطوية</translation>
    </message>
    <message>
        <source>Broom</source>
        <translation>مكنسة</translation>
    </message>
    <message>
        <source>Quill</source>
        <translation>ريشة</translation>
    </message>
    <message>
        <source>Sparkle</source>
        <translation>بريق</translation>
    </message>
    <message>
        <source>Scissors</source>
        <translation>مقص</translation>
    </message>
    <message>
        <source>Letter Q</source>
        <translation>حرف Q</translation>
    </message>
    <message>
        <source>Icon in the tray</source>
        <translation>الأيقونة في شريط النظام</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>القائمة</translation>
    </message>
    <message>
        <source>Shows one &amp;group; the others can be chosen</source>
        <translation>تعرض مجموعة واحدة، ويمكن اختيار غيرها</translation>
    </message>
    <message>
        <source>Shows &amp;all groups as submenus</source>
        <translation>تعرض كل المجموعات قوائمَ فرعية</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>البدء</translation>
    </message>
    <message>
        <source>Show the &amp;menu in the tray after login</source>
        <translation>إظهار القائمة في شريط النظام بعد تسجيل الدخول</translation>
    </message>
    <message>
        <source>Start Quenfold in the &amp;background, without this window</source>
        <translation>تشغيل Quenfold في الخلفية دون هذه النافذة</translation>
    </message>
    <message>
        <source>Always start Quenfold with these &amp;preferences</source>
        <translation>بدء Quenfold دائمًا بهذه التفضيلات</translation>
    </message>
    <message>
        <source>Palette</source>
        <translation>اللوحة</translation>
    </message>
    <message>
        <source>Takes the &amp;keyboard when it appears</source>
        <translation>تستقبل لوحة المفاتيح عند ظهورها</translation>
    </message>
    <message>
        <source>Without a selection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clean the &amp;whole text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Do nothing</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>qf::MenuSettings</name>
    <message>
        <source>%1 cannot be read</source>
        <translation>تتعذر قراءة %1</translation>
    </message>
    <message>
        <source>The settings could not be read. They were put aside as %1, and new ones begun.</source>
        <translation>تعذرت قراءة الإعدادات. وُضعت جانبًا باسم %1 وبدأت إعدادات جديدة.</translation>
    </message>
</context>
<context>
    <name>qf::Pages</name>
    <message>
        <source>Menu</source>
        <translation>القائمة</translation>
    </message>
    <message>
        <source>Cleaners</source>
        <translation>المنظّفات</translation>
    </message>
    <message>
        <source>Groups</source>
        <translation>المجموعات</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>الحالة</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>الاختصارات</translation>
    </message>
</context>
<context>
    <name>qf::PersonalLists</name>
    <message>
        <source>That was changed by another program at the same moment. What you see now is how it stands; please try again.</source>
        <translation>غيّر برنامج آخر ذلك في اللحظة نفسها. ما تراه الآن هو الوضع الحالي؛ حاول مرة أخرى.</translation>
    </message>
    <message>
        <source>%1 cannot be read, so nothing can be changed here until it is mended: %2</source>
        <translation>تتعذر قراءة %1، فلا يمكن تغيير شيء هنا حتى إصلاحه: %2</translation>
    </message>
    <message>
        <source>Some of %1 cannot be used and is left out:</source>
        <translation>بعض ما في %1 لا يصلح وقد أُهمل:</translation>
    </message>
    <message>
        <source>%1 could not be changed: %2</source>
        <translation>تعذر تغيير %1: %2</translation>
    </message>
    <message>
        <source>A cleaner needs a name.</source>
        <translation>يحتاج المنظّف إلى اسم.</translation>
    </message>
    <message>
        <source>A group needs a name.</source>
        <translation>تحتاج المجموعة إلى اسم.</translation>
    </message>
    <message>
        <source>There is a group &quot;%1&quot; already.</source>
        <translation>توجد مجموعة باسم «%1» بالفعل.</translation>
    </message>
</context>
<context>
    <name>qf::ProblemBar</name>
    <message>
        <source>Problem</source>
        <translation>مشكلة</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>إخفاء</translation>
    </message>
</context>
<context>
    <name>qf::QFWindow</name>
    <message>
        <source>Pages</source>
        <translation>الصفحات</translation>
    </message>
</context>
<context>
    <name>qf::QtPaletteTable</name>
    <message>
        <source>Cleaners</source>
        <translation>المنظّفات</translation>
    </message>
</context>
<context>
    <name>qf::QtPaletteWindow</name>
    <message>
        <source>No cleaner found</source>
        <translation>لم يُعثر على منظّف</translation>
    </message>
    <message>
        <source>Edit…</source>
        <translation>تحرير…</translation>
    </message>
    <message>
        <source>Edit groups</source>
        <translation>تحرير المجموعات</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>بحث</translation>
    </message>
    <message>
        <source>Search cleaners</source>
        <translation>البحث في المنظّفات</translation>
    </message>
    <message>
        <source>This group is empty</source>
        <translation>هذه المجموعة فارغة</translation>
    </message>
    <message>
        <source>Clipboard only</source>
        <translation>الحافظة فقط</translation>
    </message>
    <message>
        <source>Clean what is on the clipboard and leave the application alone</source>
        <translation>ينظّف محتوى الحافظة ويترك التطبيق كما هو</translation>
    </message>
</context>
<context>
    <name>qf::QtPopUpButton</name>
    <message>
        <source>Group: %1</source>
        <translation>المجموعة: %1</translation>
    </message>
</context>
<context>
    <name>qf::Reasons</name>
    <message>
        <source>no tray on this desktop for the icon; use the palette, or add a tray to a panel</source>
        <translation>لا يوجد شريط نظام للأيقونة في سطح المكتب هذا؛ استخدم اللوحة أو أضف شريط نظام إلى شريط</translation>
    </message>
    <message>
        <source>another program holds %1; choose other keys here or there</source>
        <translation>يستخدم برنامج آخر %1؛ اختر مفاتيح أخرى هنا أو هناك</translation>
    </message>
    <message>
        <source>this keyboard has no key for %1</source>
        <translation>لا مفتاح لـ %1 في لوحة المفاتيح هذه</translation>
    </message>
    <message>
        <source>the X server tells nothing of its keyboard</source>
        <translation>خادم X لا يصف لوحة مفاتيحه</translation>
    </message>
    <message>
        <source>the X server closed the connection</source>
        <translation>أغلق خادم X الاتصال</translation>
    </message>
    <message>
        <source>the connection to the X display was lost; log in again</source>
        <translation>انقطع الاتصال بشاشة X؛ سجّل الدخول من جديد</translation>
    </message>
    <message>
        <source>the accessibility bus refuses connections: %1</source>
        <translation>يرفض ناقل إمكانية الوصول الاتصال: %1</translation>
    </message>
    <message>
        <source>the connection to the D-Bus session bus was lost; log out and in again</source>
        <translation>انقطع الاتصال بناقل الجلسة D-Bus؛ سجّل الخروج ثم الدخول</translation>
    </message>
    <message>
        <source>no window manager here tells which window is active; start one that knows _NET_ACTIVE_WINDOW</source>
        <translation>لا مدير نوافذ هنا يخبر بالنافذة النشطة؛ شغّل واحدًا يعرف _NET_ACTIVE_WINDOW</translation>
    </message>
    <message>
        <source>The list of cleaners could not be published: %1</source>
        <translation>تعذر نشر قائمة المنظّفات: %1</translation>
    </message>
    <message>
        <source>finding took too long</source>
        <translation>استغرق البحث وقتًا طويلًا</translation>
    </message>
    <message>
        <source>finding took too much memory</source>
        <translation>استهلك البحث ذاكرة كثيرة</translation>
    </message>
    <message>
        <source>the result is too large</source>
        <translation>النتيجة أكبر مما ينبغي</translation>
    </message>
    <message>
        <source>the replacement names a group that the expression has not</source>
        <translation>يذكر البديل مجموعة ليست في التعبير</translation>
    </message>
    <message>
        <source>it cannot be read</source>
        <translation>تتعذر قراءته</translation>
    </message>
    <message>
        <source>it cannot be read as Markdown</source>
        <translation>تتعذر قراءته بصيغة Markdown</translation>
    </message>
    <message>
        <source>it is no Base64</source>
        <translation>ليس Base64</translation>
    </message>
    <message>
        <source>its elements are nested too deeply</source>
        <translation>عناصره متداخلة بعمق زائد</translation>
    </message>
    <message>
        <source>The text in %1 cannot be cleaned, because %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The text cannot be cleaned, because %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it does not answer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it answers too slowly</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it shows no window on the accessibility bus</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no window of another application has had the input yet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it is not on the accessibility bus; where it can be made to use it, start it anew</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it has not copied its text within 1 s</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>nothing is selected in it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it takes no text there; it may be read-only</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is nothing to select in it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>its context menu does not offer that</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>nothing is left of it, and its Paste deletes nothing; delete it there</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it refuses to tell its text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the clipboard could not be taken</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it refuses to select its text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it refuses to copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>its menu refuses</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is no text on the clipboard</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it refuses the text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it has kept the old text too; Undo there takes the new one away</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it has taken only a part of the new text; the whole is on the clipboard</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it has refused the new text after it gave up the old one; Undo there brings that back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>its window has no menu bar with Copy and Paste, and nothing in it has the focus</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a password field has the focus, which keeps its text to itself</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the accessibility bus is off; install at-spi2-core, then log out and in again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the command holds more than 16 MiB of data</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quenfold is not running; is it installed?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the session bus did not take the command</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quenfold is not running any more</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quenfold ended before it had answered</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quenfold refused the command: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the application is not installed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot connect to the X server %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no X server: DISPLAY is not set</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the X server lacks the XFIXES extension</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is no X display; hot keys work in an X11 session only</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the X server lacks the XKEYBOARD extension</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the X server does not answer; %1 is not registered</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>another program holds the keyboard: its combinations, and the desktop&apos;s, cannot be recorded; close its menu or let go of all keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>in a Wayland session shortcuts are heard only while an X11 application has the input; log in to an X11 session to have them everywhere</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>its window has no menu bar with Copy and Paste, and what has the focus there does not offer its text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is no D-Bus session bus; start the programs from a desktop session or with dbus-run-session</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is no X display; the windows of other applications can be reached in an X11 session only</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quenfold did not answer within %1 s; it may still carry out the command later</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 cannot be started: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it ended before it appeared on the bus</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it has ended</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No X display: start Quenfold in a desktop session with X11 or XWayland (DISPLAY).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the settings file gives it no uuid, or one that is not its key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the engine of Quenfold is not installed; install Quenfold again</source>
        <translation>محرك Quenfold غير مثبّت؛ أعد تثبيت Quenfold</translation>
    </message>
    <message>
        <source>files of Quenfold are missing in %1; install Quenfold again</source>
        <translation>ملفات Quenfold مفقودة في %1؛ أعد تثبيت Quenfold</translation>
    </message>
    <message>
        <source>the text on the clipboard is larger than 256 MiB</source>
        <translation>النص في الحافظة أكبر من 256 MiB</translation>
    </message>
    <message>
        <source>the connection to the accessibility bus was lost; start the applications anew</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the accessibility service does not answer; log out and in again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>what has the focus there is no text; click into the text first</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>its menu copies another text than the selected one</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>several cells are selected; clean one cell at a time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the new text would fill several cells; it is on the clipboard</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it has opened a window to ask about the new text; answer there</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>its menu does not offer that</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>its selection was dropped when the shortcut was pressed; use the palette there</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it shows its texts to other programs only when it was started with --force-renderer-accessibility</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: %2. The text was left as it was.</source>
        <source>%1: %2. The text was left as it is.</source>
        <translation>%1: %2. بقي النص كما كان.</translation>
    </message>
    <message>
        <source>the clipboard holds a password or another secret</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is no cleaning to undo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>what was copied is not the result of the last cleaning</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the result of the last cleaning stands in this text more than once</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is no web address in the text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is no e-mail address in the text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is no number in the text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>this is not valid JSON%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> (line %1, column %2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it offers no Paste to other programs; show its menu bar if it has one, or paste there yourself</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the application that copied it does not hand over the text on the clipboard</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>qf::ReorderableList</name>
    <message>
        <source>%1: Move Up</source>
        <translation>%1: إلى أعلى</translation>
    </message>
    <message>
        <source>Alt+Up</source>
        <translation>Alt+Up</translation>
    </message>
    <message>
        <source>%1: Move Down</source>
        <translation>%1: إلى أسفل</translation>
    </message>
    <message>
        <source>Alt+Down</source>
        <translation>Alt+Down</translation>
    </message>
    <message>
        <source>%1: Remove</source>
        <translation>%1: إزالة</translation>
    </message>
    <message>
        <source>Del</source>
        <translation>Del</translation>
    </message>
</context>
<context>
    <name>qf::ServiceNames</name>
    <message>
        <source>Text of other applications</source>
        <translation>نصوص التطبيقات الأخرى</translation>
    </message>
    <message>
        <source>Commands between menu and engine</source>
        <translation>الأوامر بين القائمة والمحرك</translation>
    </message>
    <message>
        <source>Your own cleaners and groups</source>
        <translation>منظّفاتك ومجموعاتك</translation>
    </message>
    <message>
        <source>News of changed settings</source>
        <translation>أخبار تغيّر الإعدادات</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>الاختصارات</translation>
    </message>
    <message>
        <source>Names of keys</source>
        <translation>أسماء المفاتيح</translation>
    </message>
    <message>
        <source>Latest command</source>
        <translation>آخر أمر</translation>
    </message>
    <message>
        <source>List of cleaners for the menu</source>
        <translation>قائمة المنظّفات للقائمة</translation>
    </message>
    <message>
        <source>Clipboard</source>
        <translation>الحافظة</translation>
    </message>
    <message>
        <source>Icon in the tray</source>
        <translation>الأيقونة في شريط النظام</translation>
    </message>
    <message>
        <source>Windows and applications</source>
        <translation>النوافذ والتطبيقات</translation>
    </message>
    <message>
        <source>Installed files</source>
        <translation>الملفات المثبّتة</translation>
    </message>
</context>
<context>
    <name>qf::ShortcutRow</name>
    <message>
        <source>shows the palette, or hides it</source>
        <translation>يظهر اللوحة أو يخفيها</translation>
    </message>
    <message>
        <source>What the keys do</source>
        <translation>ما تفعله المفاتيح</translation>
    </message>
    <message>
        <source>apply the cleaner</source>
        <translation>تطبيق المنظّف</translation>
    </message>
    <message>
        <source>show the menu of the group</source>
        <translation>عرض قائمة المجموعة</translation>
    </message>
    <message>
        <source>Move up</source>
        <translation>إلى أعلى</translation>
    </message>
    <message>
        <source>Move down</source>
        <translation>إلى أسفل</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>إزالة</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>المجموعة</translation>
    </message>
    <message>
        <source>Cleaner</source>
        <translation>المنظّف</translation>
    </message>
    <message>
        <source>Palette</source>
        <translation>اللوحة</translation>
    </message>
    <message>
        <source>%1 – %2</source>
        <comment>action, keys</comment>
        <translation>%1 – %2</translation>
    </message>
</context>
<context>
    <name>qf::ShortcutsPage</name>
    <message>
        <source>These keys work in every application. Click a field, or press Space in it, then the keys.</source>
        <translation>تعمل هذه المفاتيح في كل تطبيق. انقر حقلًا أو اضغط مفتاح المسافة فيه، ثم المفاتيح.</translation>
    </message>
    <message>
        <source>No keys can be recorded: %1</source>
        <translation>لا يمكن تسجيل مفاتيح: %1</translation>
    </message>
    <message>
        <source>&amp;Add a shortcut</source>
        <translation>إضافة اختصار</translation>
    </message>
</context>
<context>
    <name>qf::StatusPage</name>
    <message>
        <source>%1: works</source>
        <translation>%1: يعمل</translation>
    </message>
    <message>
        <source>Services of the menu</source>
        <translation>خدمات القائمة</translation>
    </message>
    <message>
        <source>Services of the engine</source>
        <translation>خدمات المحرك</translation>
    </message>
    <message>
        <source>Menu in the tray</source>
        <translation>القائمة في شريط النظام</translation>
    </message>
    <message>
        <source>Engine</source>
        <translation>المحرك</translation>
    </message>
    <message>
        <source>The menu runs.</source>
        <translation>القائمة تعمل.</translation>
    </message>
    <message>
        <source>The menu does not run.</source>
        <translation>القائمة لا تعمل.</translation>
    </message>
    <message>
        <source>The menu runs, but does not answer.</source>
        <translation>القائمة تعمل لكنها لا تستجيب.</translation>
    </message>
    <message>
        <source>&amp;Start the Menu</source>
        <translation>تشغيل القائمة</translation>
    </message>
</context>
<context>
    <name>qf::StepEditor</name>
    <message>
        <source>Cleaner of this step</source>
        <translation>منظّف هذه الخطوة</translation>
    </message>
    <message>
        <source>C&amp;leaner</source>
        <translation>المنظّف</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>البحث عن</translation>
    </message>
    <message>
        <source>Replace by</source>
        <translation>الاستبدال بـ</translation>
    </message>
    <message>
        <source>&amp;Find</source>
        <translation>البحث عن</translation>
    </message>
    <message>
        <source>Replace &amp;by</source>
        <translation>الاستبدال بـ</translation>
    </message>
    <message>
        <source>Regular e&amp;xpression</source>
        <translation>تعبير نمطي</translation>
    </message>
    <message>
        <source>&amp;Ignore capitals</source>
        <translation>تجاهل حالة الأحرف</translation>
    </message>
</context>
<context>
    <name>qf::StepFault</name>
    <message>
        <source>a parenthesis has no partner</source>
        <translation>قوس بلا نظير</translation>
    </message>
    <message>
        <source>a square bracket is not closed</source>
        <translation>قوس مربع غير مغلق</translation>
    </message>
    <message>
        <source>a backslash stands before something it cannot</source>
        <translation>شرطة مائلة قبل ما لا تصح قبله</translation>
    </message>
    <message>
        <source>braces want a number, or two, in them</source>
        <translation>يجب أن تحوي الأقواس المعقوفة عددًا أو عددين</translation>
    </message>
    <message>
        <source>in braces the smaller number comes first</source>
        <translation>يأتي العدد الأصغر أولًا في الأقواس المعقوفة</translation>
    </message>
    <message>
        <source>there is no group of that number</source>
        <translation>لا توجد مجموعة بهذا الرقم</translation>
    </message>
    <message>
        <source>a range of characters runs backwards</source>
        <translation>نطاق أحرف معكوس</translation>
    </message>
    <message>
        <source>looking behind needs a limited length</source>
        <translation>يحتاج النظر إلى الخلف طولًا محدودًا</translation>
    </message>
    <message>
        <source>there is no such kind of characters</source>
        <translation>لا يوجد هذا النوع من الأحرف</translation>
    </message>
    <message>
        <source>something stands where it cannot</source>
        <translation>شيء في غير موضعه</translation>
    </message>
    <message>
        <source>There is nothing to find.</source>
        <translation>لا يوجد ما يُبحث عنه.</translation>
    </message>
    <message>
        <source>The regular expression is wrong after its character number %1: %2.</source>
        <translation>التعبير النمطي خاطئ بعد الحرف رقم %1: %2.</translation>
    </message>
</context>
<context>
    <name>qf::StepListModel</name>
    <message>
        <source>Find and replace</source>
        <translation>بحث واستبدال</translation>
    </message>
    <message>
        <source>Remove “%1”</source>
        <translation>إزالة «%1»</translation>
    </message>
    <message>
        <source>Replace “%1” by “%2”</source>
        <translation>استبدال «%1» بـ «%2»</translation>
    </message>
    <message>
        <source>A cleaner needs at least one step.</source>
        <translation>يحتاج المنظّف إلى خطوة واحدة على الأقل.</translation>
    </message>
    <message>
        <source>Step %1: %2</source>
        <translation>الخطوة %1: %2</translation>
    </message>
</context>
<context>
    <name>qf::StoredSwitch</name>
    <message>
        <source>The settings %1.plist could not be written. See that you may write in your configuration folder.</source>
        <translation>تعذرت كتابة الإعدادات ‎%1.plist. تأكد من أن مجلد الإعدادات قابل للكتابة.</translation>
    </message>
</context>
<context>
    <name>qf::TrialPane</name>
    <message>
        <source>  Some   text to try,
with “quotes” — and	more.  </source>
        <translation>  نص   للتجربة،
فيه «اقتباس» — و	غيره.  </translation>
    </message>
    <message>
        <source>Sample</source>
        <translation>عينة</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>النتيجة</translation>
    </message>
    <message>
        <source>&amp;Try it here</source>
        <translation>جرّبه هنا</translation>
    </message>
    <message>
        <source>Left as it is: %1</source>
        <translation>بقي كما هو: %1</translation>
    </message>
</context>
</TS>
