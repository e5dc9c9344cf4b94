<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>AccessibilityAlert</name>
    <message>
        <source>Tarnwick requires that the Accessibility API be enabled.</source>
        <translation>Tarnwick を使うには、アクセシビリティを有効にする必要があります。</translation>
    </message>
    <message>
        <source>Would you like to launch System Preferences so that you can turn on "Enable access for assistive devices"?</source>
        <translation>システム設定を開いて、支援機器のアクセスを有効にしますか？</translation>
    </message>
    <message>
        <source>Open System Preferences</source>
        <translation>システム設定を開く</translation>
    </message>
    <message>
        <source>Continue Anyway</source>
        <translation>このまま続ける</translation>
    </message>
    <message>
        <source>Quit Tarnwick</source>
        <translation>Tarnwick を終了</translation>
    </message>
</context>
<context>
    <name>ShortcutRecorder</name>
    <message>
        <source>Space</source>
        <translation>スペース</translation>
    </message>
    <message>
        <source>Pad %@</source>
        <translation>テンキー %@</translation>
    </message>
    <message>
        <source>Command + </source>
        <translation>コマンド + </translation>
    </message>
    <message>
        <source>Option + </source>
        <translation>オプション + </translation>
    </message>
    <message>
        <source>Control + </source>
        <translation>コントロール + </translation>
    </message>
    <message>
        <source>Shift + </source>
        <translation>シフト + </translation>
    </message>
    <message>
        <source>The key combination %@ can't be used!</source>
        <translation>キーの組み合わせ %@ は使用できません。</translation>
    </message>
    <message>
        <source>The key combination "%@" can't be used because %@.</source>
        <translation>キーの組み合わせ「%@」は使用できません。理由: %@。</translation>
    </message>
    <message>
        <source>it's already used</source>
        <translation>すでに使用されています</translation>
    </message>
    <message>
        <source>The key combination "%@" can't be used because it's already used by a system-wide keyboard shortcut. (If you really want to use this key combination, most shortcuts can be changed in the Keyboard &amp; Mouse panel in System Preferences.)</source>
        <translation>キーの組み合わせ「%@」は、システム全体のキーボードショートカットとしてすでに使用されているため使用できません。（どうしてもこの組み合わせを使いたい場合は、ほとんどのショートカットをシステム環境設定の「キーボードとマウス」で変更できます。）</translation>
    </message>
    <message>
        <source>The key combination "%@" can't be used because it's already used by the menu item "%@".</source>
        <translation>キーの組み合わせ「%@」は、メニュー項目「%@」ですでに使用されているため使用できません。</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Alert</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>Click to record shortcut</source>
        <translation>クリックして記録</translation>
    </message>
    <message>
        <source>Type shortcut</source>
        <translation>ショートカットを入力</translation>
    </message>
    <message>
        <source>Use old shortcut</source>
        <translation>以前のものを使用</translation>
    </message>
    <message>
        <source>Shortcut</source>
        <translation>ショートカット</translation>
    </message>
    <message>
        <source>none</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>%@, %@</source>
        <translation>%@、%@</translation>
    </message>
    <message>
        <source>%@, %@, press Space to record</source>
        <translation>%@、%@、記録するにはスペースキーを押してください</translation>
    </message>
    <message>
        <source>%@, recording, type shortcut or press Escape to cancel</source>
        <translation>%@、記録中、ショートカットを入力するか Escape で取り消し</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>コマンド</translation>
    </message>
    <message>
        <source>Option</source>
        <translation>オプション</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>コントロール</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>シフト</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>デリート</translation>
    </message>
    <message>
        <source>Forward Delete</source>
        <translation>前方削除</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>クリア</translation>
    </message>
    <message>
        <source>Left Arrow</source>
        <translation>左矢印</translation>
    </message>
    <message>
        <source>Right Arrow</source>
        <translation>右矢印</translation>
    </message>
    <message>
        <source>Up Arrow</source>
        <translation>上矢印</translation>
    </message>
    <message>
        <source>Down Arrow</source>
        <translation>下矢印</translation>
    </message>
    <message>
        <source>End</source>
        <translation>エンド</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>ホーム</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>エスケープ</translation>
    </message>
    <message>
        <source>Page Down</source>
        <translation>ページダウン</translation>
    </message>
    <message>
        <source>Page Up</source>
        <translation>ページアップ</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>リターン</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>エンター</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>タブ</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>ヘルプ</translation>
    </message>
</context>
<context>
    <name>tarnwick::AboutPane</name>
    <message>
        <source>Version %1</source>
        <translation>バージョン %1</translation>
    </message>
    <message>
        <source>The menu bar of the application in front, at the pointer.</source>
        <translation>最前面のアプリケーションのメニューバーをポインタの位置に。</translation>
    </message>
    <message>
        <source>&amp;Quorlane Home Page</source>
        <translation>&amp;Quorlane のホームページ</translation>
    </message>
    <message>
        <source>O&amp;stravane Home Page</source>
        <translation>O&amp;stravane のホームページ</translation>
    </message>
    <message>
        <source>Opens in the web browser</source>
        <translation>Web ブラウザで開きます</translation>
    </message>
</context>
<context>
    <name>tarnwick::AboutPanel</name>
    <message>
        <source>About Tarnwick</source>
        <translation>Tarnwick について</translation>
    </message>
    <message>
        <source>Quorlane Home Page</source>
        <translation>Quorlane のホームページ</translation>
    </message>
    <message>
        <source>Ostravane Home Page</source>
        <translation>Ostravane のホームページ</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>バージョン %1</translation>
    </message>
    <message>
        <source>The menu bar of the application in front, at the pointer.</source>
        <translation>最前面のアプリケーションのメニューバーをポインタの位置に。</translation>
    </message>
    <message>
        <source>Opens in the web browser</source>
        <translation>Web ブラウザで開きます</translation>
    </message>
</context>
<context>
    <name>tarnwick::AppController</name>
    <message>
        <source>About Tarnwick...</source>
        <translation>Tarnwick について...</translation>
    </message>
    <message>
        <source>Preferences...</source>
        <translation>設定...</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>終了</translation>
    </message>
</context>
<context>
    <name>tarnwick::GeneralOptionsPane</name>
    <message>
        <source>Start Tarnwick when I &amp;log in</source>
        <translation>ログイン時に Tarnwick を起動(&amp;L)</translation>
    </message>
    <message>
        <source>Show Tarnwick's &amp;icon in the status area</source>
        <translation>状態表示領域に Tarnwick のアイコンを表示(&amp;I)</translation>
    </message>
    <message>
        <source>Without the icon, start Tarnwick again to come back to this window.</source>
        <translation>アイコンがないときは、もう一度 Tarnwick を起動するとこのウインドウに戻れます。</translation>
    </message>
    <message>
        <source>Include the s&amp;ystem menu</source>
        <translation>システムメニューを含める(&amp;Y)</translation>
    </message>
    <message>
        <source>Include the &amp;application's menus</source>
        <translation>アプリケーションのメニューを含める(&amp;A)</translation>
    </message>
    <message>
        <source>Show &amp;keyboard shortcuts beside the menu items</source>
        <translation>メニュー項目の横にキーボードショートカットを表示(&amp;K)</translation>
    </message>
    <message>
        <source>Show al&amp;ternative items only while their modifier key is held</source>
        <translation>修飾キーを押している間だけ代替項目を表示(&amp;T)</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>標準</translation>
    </message>
    <message>
        <source> points</source>
        <translation> ポイント</translation>
    </message>
    <message>
        <source>Text &amp;size of the menu:</source>
        <translation>メニューの文字サイズ(&amp;S):</translation>
    </message>
    <message>
        <source>Text size of the menu</source>
        <translation>メニューの文字サイズ</translation>
    </message>
    <message>
        <source>&amp;Reset to Defaults</source>
        <translation>デフォルトに戻す(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Quit Tarnwick</source>
        <translation>Tarnwick を終了(&amp;Q)</translation>
    </message>
</context>
<context>
    <name>tarnwick::HotKeyPane</name>
    <message>
        <source>Open the menu with a &amp;hot key</source>
        <translation>ホットキーでメニューを開く(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Shortcut:</source>
        <translation>ショートカット(&amp;S):</translation>
    </message>
    <message>
        <source>Click the field or press Space in it, then press the new keys together. Escape keeps the old ones.</source>
        <translation>欄をクリックするか、欄の中でスペースキーを押してから、新しいキーを同時に押します。Escape キーで元のままになります。</translation>
    </message>
    <message>
        <source>Open the menu with an e&amp;xtra mouse button</source>
        <translation>マウスの追加ボタンでメニューを開く(&amp;X)</translation>
    </message>
    <message>
        <source>Mouse button</source>
        <translation>マウスボタン</translation>
    </message>
    <message>
        <source>Mouse &amp;button:</source>
        <translation>マウスボタン(&amp;B):</translation>
    </message>
    <message>
        <source>Click the field with the button that is to open the menu: the middle one, or one at the side of the mouse.</source>
        <translation>メニューを開くのに使うボタン（中央のボタン、またはマウスの側面のボタン）で欄をクリックします。</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>コピー(&amp;C)</translation>
    </message>
    <message>
        <source>Co&amp;py</source>
        <translation>コピー(&amp;P)</translation>
    </message>
</context>
<context>
    <name>tarnwick::PreferencesWindow</name>
    <message>
        <source>H&amp;ot Key</source>
        <translation>ホットキー(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;General</source>
        <translation>一般(&amp;G)</translation>
    </message>
    <message>
        <source>Abo&amp;ut</source>
        <translation>情報(&amp;U)</translation>
    </message>
    <message>
        <source>In this Wayland session a part of Tarnwick is missing.</source>
        <translation>この Wayland セッションでは Tarnwick の一部の機能が使えません。</translation>
    </message>
    <message>
        <source>The hot key and the mouse button open the menu only while an application that runs on XWayland is in front.

For all others, let a key of the desktop run this command:
%1

Over them the menu obeys the pointer alone, and it may open where the pointer was seen last.</source>
        <translation>ホットキーとマウスボタンでメニューを開けるのは、XWayland 上のアプリケーションが最前面にあるときだけです。

そのほかのアプリケーションでは、デスクトップのキーに次のコマンドを割り当ててください:
%1

その場合、メニューはポインターだけで操作します。ポインターが最後に検出された位置に開くことがあります。</translation>
    </message>
    <message>
        <source>This Tarnwick was built without LayerShellQt, so it runs on XWayland. One that was built with it runs on Wayland itself, without these limits, where the compositor allows that.</source>
        <translation>この Tarnwick は LayerShellQt なしでビルドされているため、XWayland 上で動作しています。LayerShellQt 付きでビルドしたものは、コンポジタが許す環境では Wayland 上で直接動作し、これらの制限はありません。</translation>
    </message>
    <message>
        <source>Tarnwick runs on XWayland here: this compositor lets no program open a menu at the pointer on Wayland itself.</source>
        <translation>ここでは Tarnwick は XWayland 上で動作しています。このコンポジタは、Wayland 上でプログラムがポインタの位置にメニューを開くことを許していません。</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>tarnwick::TWMouseButtonIdentifier</name>
    <message>
        <source>Button Number: %i</source>
        <translation>ボタン番号: %i</translation>
    </message>
</context>
<context>
    <name>MainMenu</name>
    <message>
        <source>Application</source>
        <translation>アプリケーション</translation>
    </message>
    <message>
        <source>About Tarnwick...</source>
        <translation>Tarnwick について...</translation>
    </message>
    <message>
        <source>Preferences...</source>
        <translation>設定...</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>終了</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>編集</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>取り消す</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>やり直す</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>切り取り</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>貼り付け</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>すべて選択</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>ウィンドウ</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>最小化</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
</context>
<context>
    <name>tarnwick::GlobalHotKeys</name>
    <message>
        <source>Open the Menu at the Pointer</source>
        <translation>ポインターの位置にメニューを開く</translation>
    </message>
</context>
<context>
    <name>tarnwick::PreferencesWindowController</name>
    <message>
        <source>they are taken by %1</source>
        <translation>%1 が使用しています</translation>
    </message>
</context>
<context>
    <name>tarnwick::TriggerHintView</name>
    <message>
        <source>Keys given by the desktop: %1. Others can be chosen in its settings.</source>
        <translation>デスクトップが割り当てたキー: %1。別のキーはデスクトップの設定で選べます。</translation>
    </message>
    <message>
        <source>The desktop is being asked for these keys.</source>
        <translation>デスクトップにこのキーを要求しています。</translation>
    </message>
    <message>
        <source>The desktop has not given these keys. Record others, or allow them in its settings.</source>
        <translation>デスクトップはこのキーを割り当てませんでした。別のキーを記録するか、デスクトップの設定で許可してください。</translation>
    </message>
    <message>
        <source>These keys are taken by %1. Record others.</source>
        <translation>このキーは %1 が使用しています。別のキーを記録してください。</translation>
    </message>
    <message>
        <source>The compositor has to be told. Put this into %1:</source>
        <translation>コンポジターへの設定が必要です。%1 に次の内容を追加してください：</translation>
    </message>
    <message>
        <source>This desktop gives no keys to programs. Let one of its own run this command:</source>
        <translation>このデスクトップはキーをプログラムに割り当てません。デスクトップのキーに次のコマンドを割り当ててください：</translation>
    </message>
    <message>
        <source>This desktop can have a button at the side of the mouse press the hot key: look under Mouse in its settings.</source>
        <translation>このデスクトップでは、マウスの側面のボタンにショートカットキーを割り当てられます。設定の「マウス」をご覧ください。</translation>
    </message>
    <message>
        <source>On this desktop no mouse button can open the menu.</source>
        <translation>このデスクトップでは、マウスボタンでメニューを開くことはできません。</translation>
    </message>
    <message>
        <source>It works: the menu has been asked for this way.</source>
        <translation>動作しています：この方法でメニューが要求されました。</translation>
    </message>
    <message>
        <source>It has not asked for the menu yet.</source>
        <translation>この方法ではまだメニューが要求されていません。</translation>
    </message>
</context>
<context>
    <name>tarnwick::SearchView</name>
    <message>
        <source>Search the menus</source>
        <translation>メニューを検索</translation>
    </message>
    <message>
        <source>Results</source>
        <translation>検索結果</translation>
    </message>
    <message>
        <source>Menus that were not searched: %1. Open them in the application once.</source>
        <translation>検索されなかったメニュー: %1。アプリケーションで一度開いてください。</translation>
    </message>
    <message>
        <source>Menus that took too long: %1.</source>
        <translation>時間がかかりすぎたメニュー: %1。</translation>
    </message>
    <message>
        <source>Results: %1</source>
        <translation>検索結果: %1</translation>
    </message>
    <message>
        <source>Nothing is called so.</source>
        <translation>該当する項目はありません。</translation>
    </message>
    <message>
        <source>Searching...</source>
        <translation>検索中...</translation>
    </message>
</context>
<context>
    <name>tarnwick::UnmadeMenu</name>
    <message>
        <source>Open this menu in the application once</source>
        <translation>アプリケーションでこのメニューを一度開いてください</translation>
    </message>
</context>
</TS>
