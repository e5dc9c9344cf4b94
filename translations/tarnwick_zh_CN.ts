<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>AccessibilityAlert</name>
    <message>
        <source>Tarnwick requires that the Accessibility API be enabled.</source>
        <translation>Tarnwick 需要启用辅助功能。</translation>
    </message>
    <message>
        <source>Would you like to launch System Preferences so that you can turn on "Enable access for assistive devices"?</source>
        <translation>要打开系统设置以启用辅助设备的访问吗？</translation>
    </message>
    <message>
        <source>Open System Preferences</source>
        <translation>打开系统设置</translation>
    </message>
    <message>
        <source>Continue Anyway</source>
        <translation>仍然继续</translation>
    </message>
    <message>
        <source>Quit Tarnwick</source>
        <translation>退出 Tarnwick</translation>
    </message>
</context>
<context>
    <name>ShortcutRecorder</name>
    <message>
        <source>Space</source>
        <translation>空格</translation>
    </message>
    <message>
        <source>Pad %@</source>
        <translation>小键盘 %@</translation>
    </message>
    <message>
        <source>Command + </source>
        <translation>Command + </translation>
    </message>
    <message>
        <source>Option + </source>
        <translation>Option + </translation>
    </message>
    <message>
        <source>Control + </source>
        <translation>Control + </translation>
    </message>
    <message>
        <source>Shift + </source>
        <translation>Shift + </translation>
    </message>
    <message>
        <source>The key combination %@ can't be used!</source>
        <translation>无法使用组合键 %@！</translation>
    </message>
    <message>
        <source>The key combination "%@" can't be used because %@.</source>
        <translation>无法使用组合键“%@”，因为%@。</translation>
    </message>
    <message>
        <source>it's already used</source>
        <translation>它已被使用</translation>
    </message>
    <message>
        <source>The key combination "%@" can't be used because it's already used by a system-wide keyboard shortcut. (If you really want to use this key combination, most shortcuts can be changed in the Keyboard &amp; Mouse panel in System Preferences.)</source>
        <translation>无法使用组合键“%@”，因为它已被系统级键盘快捷键占用。（如果确实要使用此组合键，大多数快捷键可以在“系统偏好设置”的“键盘与鼠标”面板中更改。）</translation>
    </message>
    <message>
        <source>The key combination "%@" can't be used because it's already used by the menu item "%@".</source>
        <translation>无法使用组合键“%@”，因为菜单项“%@”已使用它。</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>好</translation>
    </message>
    <message>
        <source>Alert</source>
        <translation>提醒</translation>
    </message>
    <message>
        <source>Click to record shortcut</source>
        <translation>点按以录制快捷键</translation>
    </message>
    <message>
        <source>Type shortcut</source>
        <translation>键入快捷键</translation>
    </message>
    <message>
        <source>Use old shortcut</source>
        <translation>使用原快捷键</translation>
    </message>
    <message>
        <source>Shortcut</source>
        <translation>快捷键</translation>
    </message>
    <message>
        <source>none</source>
        <translation>无</translation>
    </message>
    <message>
        <source>%@, %@</source>
        <translation>%@，%@</translation>
    </message>
    <message>
        <source>%@, %@, press Space to record</source>
        <translation>%@，%@，按空格键录制</translation>
    </message>
    <message>
        <source>%@, recording, type shortcut or press Escape to cancel</source>
        <translation>%@，正在录制，请键入快捷键或按 Esc 键取消</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Command</translation>
    </message>
    <message>
        <source>Option</source>
        <translation>Option</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>Control</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Shift</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>退格键</translation>
    </message>
    <message>
        <source>Forward Delete</source>
        <translation>向前删除键</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>清除键</translation>
    </message>
    <message>
        <source>Left Arrow</source>
        <translation>左箭头</translation>
    </message>
    <message>
        <source>Right Arrow</source>
        <translation>右箭头</translation>
    </message>
    <message>
        <source>Up Arrow</source>
        <translation>上箭头</translation>
    </message>
    <message>
        <source>Down Arrow</source>
        <translation>下箭头</translation>
    </message>
    <message>
        <source>End</source>
        <translation>End 键</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Home 键</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Esc 键</translation>
    </message>
    <message>
        <source>Page Down</source>
        <translation>下翻页键</translation>
    </message>
    <message>
        <source>Page Up</source>
        <translation>上翻页键</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>回车键</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>小键盘回车键</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tab 键</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>帮助键</translation>
    </message>
</context>
<context>
    <name>tarnwick::AboutPane</name>
    <message>
        <source>Version %1</source>
        <translation>版本 %1</translation>
    </message>
    <message>
        <source>The menu bar of the application in front, at the pointer.</source>
        <translation>最前面应用程序的菜单栏，就在指针处。</translation>
    </message>
    <message>
        <source>&amp;Quorlane Home Page</source>
        <translation>&amp;Quorlane 主页</translation>
    </message>
    <message>
        <source>O&amp;stravane Home Page</source>
        <translation>O&amp;stravane 主页</translation>
    </message>
    <message>
        <source>Opens in the web browser</source>
        <translation>在网页浏览器中打开</translation>
    </message>
</context>
<context>
    <name>tarnwick::AboutPanel</name>
    <message>
        <source>About Tarnwick</source>
        <translation>关于 Tarnwick</translation>
    </message>
    <message>
        <source>Quorlane Home Page</source>
        <translation>Quorlane 主页</translation>
    </message>
    <message>
        <source>Ostravane Home Page</source>
        <translation>Ostravane 主页</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>版本 %1</translation>
    </message>
    <message>
        <source>The menu bar of the application in front, at the pointer.</source>
        <translation>最前面应用程序的菜单栏，就在指针处。</translation>
    </message>
    <message>
        <source>Opens in the web browser</source>
        <translation>在网页浏览器中打开</translation>
    </message>
</context>
<context>
    <name>tarnwick::AppController</name>
    <message>
        <source>About Tarnwick...</source>
        <translation>关于 Tarnwick...</translation>
    </message>
    <message>
        <source>Preferences...</source>
        <translation>偏好设置...</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>退出</translation>
    </message>
</context>
<context>
    <name>tarnwick::GeneralOptionsPane</name>
    <message>
        <source>Start Tarnwick when I &amp;log in</source>
        <translation>登录时启动 Tarnwick(&amp;L)</translation>
    </message>
    <message>
        <source>Show Tarnwick's &amp;icon in the status area</source>
        <translation>在状态区显示 Tarnwick 图标(&amp;I)</translation>
    </message>
    <message>
        <source>Without the icon, start Tarnwick again to come back to this window.</source>
        <translation>没有图标时，再次启动 Tarnwick 即可回到此窗口。</translation>
    </message>
    <message>
        <source>Include the s&amp;ystem menu</source>
        <translation>包含系统菜单(&amp;Y)</translation>
    </message>
    <message>
        <source>Include the &amp;application's menus</source>
        <translation>包含应用程序的菜单(&amp;A)</translation>
    </message>
    <message>
        <source>Show &amp;keyboard shortcuts beside the menu items</source>
        <translation>在菜单项旁显示键盘快捷键(&amp;K)</translation>
    </message>
    <message>
        <source>Show al&amp;ternative items only while their modifier key is held</source>
        <translation>仅在按住修饰键时显示替代项(&amp;T)</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>标准</translation>
    </message>
    <message>
        <source> points</source>
        <translation> 磅</translation>
    </message>
    <message>
        <source>Text &amp;size of the menu:</source>
        <translation>菜单文字大小(&amp;S):</translation>
    </message>
    <message>
        <source>Text size of the menu</source>
        <translation>菜单文字大小</translation>
    </message>
    <message>
        <source>&amp;Reset to Defaults</source>
        <translation>恢复默认设置(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Quit Tarnwick</source>
        <translation>退出 Tarnwick(&amp;Q)</translation>
    </message>
</context>
<context>
    <name>tarnwick::HotKeyPane</name>
    <message>
        <source>Open the menu with a &amp;hot key</source>
        <translation>使用快捷键打开菜单(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Shortcut:</source>
        <translation>快捷键(&amp;S):</translation>
    </message>
    <message>
        <source>Click the field or press Space in it, then press the new keys together. Escape keeps the old ones.</source>
        <translation>点按此栏，或在其中按空格键，然后同时按下新的按键。按 Esc 键保留原来的按键。</translation>
    </message>
    <message>
        <source>Open the menu with an e&amp;xtra mouse button</source>
        <translation>使用额外的鼠标按键打开菜单(&amp;X)</translation>
    </message>
    <message>
        <source>Mouse button</source>
        <translation>鼠标按键</translation>
    </message>
    <message>
        <source>Mouse &amp;button:</source>
        <translation>鼠标按键(&amp;B):</translation>
    </message>
    <message>
        <source>Click the field with the button that is to open the menu: the middle one, or one at the side of the mouse.</source>
        <translation>用要打开菜单的按键点按此栏：中键，或鼠标侧面的按键。</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>复制(&amp;C)</translation>
    </message>
    <message>
        <source>Co&amp;py</source>
        <translation>复制(&amp;P)</translation>
    </message>
</context>
<context>
    <name>tarnwick::PreferencesWindow</name>
    <message>
        <source>H&amp;ot Key</source>
        <translation>快捷键(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;General</source>
        <translation>通用(&amp;G)</translation>
    </message>
    <message>
        <source>Abo&amp;ut</source>
        <translation>关于(&amp;U)</translation>
    </message>
    <message>
        <source>In this Wayland session a part of Tarnwick is missing.</source>
        <translation>在此 Wayland 会话中，Tarnwick 的部分功能不可用。</translation>
    </message>
    <message>
        <source>The hot key and the mouse button open the menu only while an application that runs on XWayland is in front.

For all others, let a key of the desktop run this command:
%1

Over them the menu obeys the pointer alone, and it may open where the pointer was seen last.</source>
        <translation>只有在 XWayland 上运行的应用程序位于最前面时，快捷键和鼠标按钮才能打开菜单。

对于其他应用程序，请让桌面的某个按键运行此命令：
%1

在这些应用程序上，菜单只能用指针操作，并且可能在最后检测到指针的位置打开。</translation>
    </message>
    <message>
        <source>This Tarnwick was built without LayerShellQt, so it runs on XWayland. One that was built with it runs on Wayland itself, without these limits, where the compositor allows that.</source>
        <translation>此 Tarnwick 构建时未包含 LayerShellQt，因此在 XWayland 上运行。包含它的构建在合成器允许时直接在 Wayland 上运行，没有这些限制。</translation>
    </message>
    <message>
        <source>Tarnwick runs on XWayland here: this compositor lets no program open a menu at the pointer on Wayland itself.</source>
        <translation>Tarnwick 在此处运行于 XWayland：此合成器不允许任何程序直接在 Wayland 上于指针处打开菜单。</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
</context>
<context>
    <name>tarnwick::TWMouseButtonIdentifier</name>
    <message>
        <source>Button Number: %i</source>
        <translation>按键编号：%i</translation>
    </message>
</context>
<context>
    <name>MainMenu</name>
    <message>
        <source>Application</source>
        <translation>应用程序</translation>
    </message>
    <message>
        <source>About Tarnwick...</source>
        <translation>关于 Tarnwick...</translation>
    </message>
    <message>
        <source>Preferences...</source>
        <translation>偏好设置...</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>退出</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>编辑</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>重做</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>剪切</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>粘贴</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>全选</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>窗口</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>最小化</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>tarnwick::GlobalHotKeys</name>
    <message>
        <source>Open the Menu at the Pointer</source>
        <translation>在指针处打开菜单</translation>
    </message>
</context>
<context>
    <name>tarnwick::PreferencesWindowController</name>
    <message>
        <source>they are taken by %1</source>
        <translation>它已被 %1 占用</translation>
    </message>
</context>
<context>
    <name>tarnwick::TriggerHintView</name>
    <message>
        <source>Keys given by the desktop: %1. Others can be chosen in its settings.</source>
        <translation>桌面分配的按键：%1。可在桌面的设置中选择其他按键。</translation>
    </message>
    <message>
        <source>The desktop is being asked for these keys.</source>
        <translation>正在向桌面请求这些按键。</translation>
    </message>
    <message>
        <source>The desktop has not given these keys. Record others, or allow them in its settings.</source>
        <translation>桌面没有分配这些按键。请录制其他按键，或在桌面的设置中允许它们。</translation>
    </message>
    <message>
        <source>These keys are taken by %1. Record others.</source>
        <translation>这些按键已被 %1 占用。请录制其他按键。</translation>
    </message>
    <message>
        <source>The compositor has to be told. Put this into %1:</source>
        <translation>需要在合成器中设置。请将以下内容加入 %1：</translation>
    </message>
    <message>
        <source>This desktop gives no keys to programs. Let one of its own run this command:</source>
        <translation>此桌面不向程序分配按键。请在桌面中将以下命令绑定到某个按键：</translation>
    </message>
    <message>
        <source>This desktop can have a button at the side of the mouse press the hot key: look under Mouse in its settings.</source>
        <translation>此桌面可以让鼠标侧键触发快捷键：请在其设置中查看“鼠标”。</translation>
    </message>
    <message>
        <source>On this desktop no mouse button can open the menu.</source>
        <translation>在此桌面上，无法用鼠标按钮打开菜单。</translation>
    </message>
    <message>
        <source>It works: the menu has been asked for this way.</source>
        <translation>已生效：已经通过这种方式请求过菜单。</translation>
    </message>
    <message>
        <source>It has not asked for the menu yet.</source>
        <translation>尚未通过这种方式请求过菜单。</translation>
    </message>
</context>
<context>
    <name>tarnwick::SearchView</name>
    <message>
        <source>Search the menus</source>
        <translation>搜索菜单</translation>
    </message>
    <message>
        <source>Results</source>
        <translation>结果</translation>
    </message>
    <message>
        <source>Menus that were not searched: %1. Open them in the application once.</source>
        <translation>未搜索的菜单：%1。请先在应用程序中打开一次。</translation>
    </message>
    <message>
        <source>Menus that took too long: %1.</source>
        <translation>耗时过长的菜单：%1。</translation>
    </message>
    <message>
        <source>Results: %1</source>
        <translation>结果：%1</translation>
    </message>
    <message>
        <source>Nothing is called so.</source>
        <translation>没有叫这个名称的项目。</translation>
    </message>
    <message>
        <source>Searching...</source>
        <translation>正在搜索...</translation>
    </message>
</context>
<context>
    <name>tarnwick::UnmadeMenu</name>
    <message>
        <source>Open this menu in the application once</source>
        <translation>请先在应用程序中打开一次此菜单</translation>
    </message>
</context>
</TS>
