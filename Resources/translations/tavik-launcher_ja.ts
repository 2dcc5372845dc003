<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>Tavik::Texts</name>
    <message>
        <source>Launch at login could not be changed from this build.</source>
        <translation>このビルドからはログイン時の起動を変更できませんでした。</translation>
    </message>
    <message>
        <source>Enable Tavik Launcher in System Settings &gt; Login Items to finish setup.</source>
        <translation>設定を完了するには、システム設定 &gt; ログイン項目で Tavik Launcher を有効にしてください。</translation>
    </message>
    <message>
        <source>Some features are off by default — explore Settings to enable more.</source>
        <translation>最初はオフの機能もあります — 設定を見てみましょう。</translation>
    </message>
    <message>
        <source>Type any letters to filter the ring by app name.</source>
        <translation>文字を入力すると、アプリ名でリングを絞り込めます。</translation>
    </message>
    <message>
        <source>Double-tap your shortcut to pin the ring open.</source>
        <translation>ショートカットを 2 回押すと、リングを開いたままにできます。</translation>
    </message>
    <message>
        <source>Arrow keys rotate the selection — press Return to launch.</source>
        <translation>矢印キーで選択を回し — Return で起動します。</translation>
    </message>
    <message>
        <source>Press 1–9 to launch that slot instantly.</source>
        <translation>1–9 を押すと、その位置のアプリをすぐに起動します。</translation>
    </message>
    <message>
        <source>Keep favorites on the ring: Settings → Permanent Apps.</source>
        <translation>お気に入りをリングに置くには: 設定 → 常設アプリ。</translation>
    </message>
    <message>
        <source>Fill empty slots with recent apps — toggle it in Settings.</source>
        <translation>空いた位置を最近のアプリで埋められます — 設定で切り替えます。</translation>
    </message>
    <message>
        <source>Turn on &quot;Search All Apps&quot; in Settings to find apps beyond the ring.</source>
        <translation>設定の「すべてのアプリを検索」をオンにすると、リングの外のアプリも見つかります。</translation>
    </message>
    <message>
        <source>Make the ring yours — size, colors, and themes live in Settings.</source>
        <translation>リングを自分好みに — 大きさ、色、テーマは設定にあります。</translation>
    </message>
    <message>
        <source>A dot inside the menu-bar wheel means an update is ready.</source>
        <translation>メニューバーの輪の中の点は、アップデートがある印です。</translation>
    </message>
    <message>
        <source>Helpful hints will appear here every %1 launches. Adjust or turn them off in Settings.</source>
        <translation>%1 回の起動ごとに、ここにヒントが出ます。設定で変更やオフにできます。</translation>
    </message>
    <message>
        <source>Settings imported from %1.</source>
        <translation>%1 から設定を読み込みました。</translation>
    </message>
    <message>
        <source>Imported %1 — 1 pinned app restored, %2 not installed on this Mac.</source>
        <translation>%1 を読み込みました — 常設アプリ 1 個を復元、%2 個はこのコンピューターにありません。</translation>
    </message>
    <message numerus="yes">
        <source>Imported %1 — %n pinned apps restored, %2 not installed on this Mac.</source>
        <translation>
            <numerusform>%1 を読み込みました — 常設アプリ %n 個を復元、%2 個はこのコンピューターにありません。</numerusform>
        </translation>
    </message>
    <message>
        <source>Couldn&apos;t import %1 — is it a valid Tavik settings file?</source>
        <translation>%1 を読み込めません — Tavik の正しい設定ファイルですか?</translation>
    </message>
    <message>
        <source>Couldn&apos;t export: %1</source>
        <translation>書き出せません: %1</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>Control</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Shift</translation>
    </message>
    <message>
        <source>Super</source>
        <translation>Super</translation>
    </message>
    <message>
        <source>to select all</source>
        <translation>すべて選択に</translation>
    </message>
    <message>
        <source>to copy</source>
        <translation>コピーに</translation>
    </message>
    <message>
        <source>to find</source>
        <translation>検索に</translation>
    </message>
    <message>
        <source>to save</source>
        <translation>保存に</translation>
    </message>
    <message>
        <source>to paste</source>
        <translation>貼り付けに</translation>
    </message>
    <message>
        <source>to cut</source>
        <translation>切り取りに</translation>
    </message>
    <message>
        <source>to undo</source>
        <translation>取り消しに</translation>
    </message>
    <message>
        <source>to redo</source>
        <translation>やり直しに</translation>
    </message>
    <message>
        <source>to close a window</source>
        <translation>ウィンドウを閉じるのに</translation>
    </message>
    <message>
        <source>Ctrl</source>
        <translation>Ctrl</translation>
    </message>
    <message>
        <source>Hold %1 to show the ring, let go to dismiss it</source>
        <translation>%1 を押している間リングを表示し、放すと閉じます</translation>
    </message>
    <message>
        <source>Press %1 to show or dismiss the ring</source>
        <translation>%1 を押すとリングを表示または閉じます</translation>
    </message>
    <message>
        <source>%1 types a character. As the shortcut of the ring it could not be typed in any program any more.</source>
        <translation>%1 は文字を入力するキーです。リングのショートカットにすると、どのプログラムでも入力できなくなります。</translation>
    </message>
    <message>
        <source>Programs use %1 themselves%2. As the shortcut of the ring it would not reach any of them any more.</source>
        <translation>%1 は多くのプログラムが%2使っています。リングのショートカットにすると、どのプログラムにも届かなくなります。</translation>
    </message>
    <message>
        <source>Shortcuts of the desktop that begin with %1 go on working.</source>
        <translation>%1 で始まるデスクトップのショートカットは、そのまま使えます。</translation>
    </message>
    <message>
        <source>Shortcuts that the desktop or another program has taken stay theirs.</source>
        <translation>デスクトップやほかのプログラムが使っているショートカットは、そのまま残ります。</translation>
    </message>
    <message>
        <source>AltGr only chooses which character a key types and cannot be part of a shortcut. Try one without it.</source>
        <translation>AltGr はキーの文字を選ぶだけで、ショートカットには使えません。AltGr なしでお試しください。</translation>
    </message>
    <message>
        <source>Allow Accessibility Access</source>
        <translation>アクセシビリティへのアクセスを許可</translation>
    </message>
    <message>
        <source>Welcome to Tavik Launcher</source>
        <translation>Tavik Launcher へようこそ</translation>
    </message>
    <message>
        <source>Reindex Apps</source>
        <translation>アプリの再登録</translation>
    </message>
    <message>
        <source>Tavik Launcher Settings</source>
        <translation>Tavik Launcher の設定</translation>
    </message>
    <message>
        <source>This build is not updated by itself.</source>
        <translation>このビルドは自動で更新されません。</translation>
    </message>
    <message>
        <source>There is no update to install.</source>
        <translation>インストールするアップデートはありません。</translation>
    </message>
    <message>
        <source>%1 cannot be had.</source>
        <translation>%1 は使えません。</translation>
    </message>
    <message>
        <source>Another application may use it, or the keyboard has changed. Choose another shortcut in the settings.</source>
        <translation>ほかのアプリが使っているか、キーボードが変わりました。設定で別のショートカットを選んでください。</translation>
    </message>
    <message>
        <source>A shortcut needs at least one modifier key.</source>
        <translation>ショートカットには修飾キーが少なくとも 1 つ必要です。</translation>
    </message>
    <message>
        <source>This keyboard does not have all the keys of %1.</source>
        <translation>このキーボードには %1 のキーがそろっていません。</translation>
    </message>
    <message>
        <source>This desktop gives programs no shortcut of modifiers alone. Add a key: %1, say.</source>
        <translation>このデスクトップでは、修飾キーだけのショートカットは使えません。%1 のようにキーを加えてください。</translation>
    </message>
    <message>
        <source>%1 is already used by another application.</source>
        <translation>%1 はすでにほかのアプリが使っています。</translation>
    </message>
    <message>
        <source>Type to filter…</source>
        <translation>入力して絞り込み…</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>フィルター</translation>
    </message>
    <message>
        <source>running</source>
        <translation>実行中</translation>
    </message>
    <message>
        <source>starting</source>
        <translation>起動中</translation>
    </message>
    <message>
        <source>Type to filter...</source>
        <translation>入力して絞り込み…</translation>
    </message>
    <message>
        <source>Pinned</source>
        <translation>固定中</translation>
    </message>
    <message>
        <source>Search mode</source>
        <translation>検索モード</translation>
    </message>
    <message>
        <source>No matches</source>
        <translation>一致なし</translation>
    </message>
    <message>
        <source>Nothing here yet. Click to add apps in Settings → Permanent Apps.</source>
        <translation>まだ何もありません。クリックして、設定 → 常設アプリで追加してください。</translation>
    </message>
    <message>
        <source>Windows, drawing, system services</source>
        <translation>ウィンドウ、描画、システムサービス</translation>
    </message>
    <message>
        <source>Desktop entries, starting applications</source>
        <translation>デスクトップエントリ、アプリの起動</translation>
    </message>
    <message>
        <source>X11 and Wayland sessions, and their keyboards</source>
        <translation>X11 と Wayland のセッションとキーボード</translation>
    </message>
    <message>
        <source>Property lists</source>
        <translation>プロパティリスト</translation>
    </message>
    <message>
        <source>Signatures of updates</source>
        <translation>アップデートの署名</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>バージョン %1</translation>
    </message>
    <message>
        <source>Free software under the MIT license</source>
        <translation>MIT ライセンスのフリーソフトウェア</translation>
    </message>
    <message>
        <source>About</source>
        <translation>情報</translation>
    </message>
    <message>
        <source>A fast radial launcher centered wherever your pointer is.</source>
        <translation>ポインターの位置に開く、すばやい円形ランチャー。</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>ヘルプ</translation>
    </message>
    <message>
        <source>Welcome tour</source>
        <translation>ツアー</translation>
    </message>
    <message>
        <source>The ring in four short steps</source>
        <translation>リングを 4 つの短いステップで</translation>
    </message>
    <message>
        <source>Repeat Tour</source>
        <translation>ツアーをもう一度</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>サポート</translation>
    </message>
    <message>
        <source>Questions, ideas and faults</source>
        <translation>質問、アイデア、不具合</translation>
    </message>
    <message>
        <source>Open Support Page</source>
        <translation>サポートページを開く</translation>
    </message>
    <message>
        <source>Built with</source>
        <translation>使用ライブラリ</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>外観</translation>
    </message>
    <message>
        <source>Size and content of the ring. Every change shows at once in the ring beside this window.</source>
        <translation>リングの大きさと内容。変更はすぐに、このウィンドウの横のリングに表れます。</translation>
    </message>
    <message>
        <source>Ring</source>
        <translation>リング</translation>
    </message>
    <message>
        <source>Diameter</source>
        <translation>直径</translation>
    </message>
    <message>
        <source>The ring&apos;s outer size</source>
        <translation>リングの外側の大きさ</translation>
    </message>
    <message>
        <source>Thickness</source>
        <translation>太さ</translation>
    </message>
    <message>
        <source>Width of the band</source>
        <translation>帯の幅</translation>
    </message>
    <message>
        <source>Icon size</source>
        <translation>アイコンの大きさ</translation>
    </message>
    <message>
        <source>Limited by thickness</source>
        <translation>太さで制限されます</translation>
    </message>
    <message>
        <source>Maximum applications</source>
        <translation>アプリの最大数</translation>
    </message>
    <message>
        <source>Slots around the ring</source>
        <translation>リングの位置の数</translation>
    </message>
    <message>
        <source>Labels</source>
        <translation>ラベル</translation>
    </message>
    <message>
        <source>Show application names</source>
        <translation>アプリ名を表示</translation>
    </message>
    <message>
        <source>The selected application&apos;s name in the center</source>
        <translation>選択中のアプリの名前を中央に表示</translation>
    </message>
    <message>
        <source>Keep the center hint visible</source>
        <translation>中央のヒントを表示し続ける</translation>
    </message>
    <message>
        <source>Hints from the rotation are then not shown</source>
        <translation>交代するヒントは表示されなくなります</translation>
    </message>
    <message>
        <source>Reset Layout</source>
        <translation>レイアウトをリセット</translation>
    </message>
    <message>
        <source>Restore size, thickness, icon size and number of slots.</source>
        <translation>大きさ、太さ、アイコンの大きさ、数を元に戻します。</translation>
    </message>
    <message>
        <source>%1, not installed</source>
        <translation>%1、未インストール</translation>
    </message>
    <message>
        <source>Not installed — %1</source>
        <translation>未インストール — %1</translation>
    </message>
    <message>
        <source>Already on the ring</source>
        <translation>すでにリングにあります</translation>
    </message>
    <message>
        <source>Backup</source>
        <translation>バックアップ</translation>
    </message>
    <message>
        <source>Keep your settings in a file, or carry them to another machine.</source>
        <translation>設定をファイルに保存したり、別のコンピューターに移したりします。</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>書き出し</translation>
    </message>
    <message>
        <source>Write all settings to a file</source>
        <translation>すべての設定をファイルに書き出します</translation>
    </message>
    <message>
        <source>Export Settings…</source>
        <translation>設定を書き出す…</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>読み込み</translation>
    </message>
    <message>
        <source>Take over the settings of a file</source>
        <translation>ファイルの設定を取り込みます</translation>
    </message>
    <message>
        <source>Settings that the file does not mention stay as they are.</source>
        <translation>ファイルにない設定は、そのまま残ります。</translation>
    </message>
    <message>
        <source>Import Settings…</source>
        <translation>設定を読み込む…</translation>
    </message>
    <message>
        <source>Undo Import</source>
        <translation>読み込みを取り消す</translation>
    </message>
    <message>
        <source>Go back to the settings before the import; possible until this window closes.</source>
        <translation>読み込む前の設定に戻ります。このウィンドウを閉じるまで可能です。</translation>
    </message>
    <message>
        <source>Export Tavik Launcher Settings</source>
        <translation>Tavik Launcher の設定を書き出す</translation>
    </message>
    <message>
        <source>Settings (*.json)</source>
        <translation>設定 (*.json)</translation>
    </message>
    <message>
        <source>Settings exported to %1.</source>
        <translation>設定を %1 に書き出しました。</translation>
    </message>
    <message>
        <source>Import Tavik Launcher Settings</source>
        <translation>Tavik Launcher の設定を読み込む</translation>
    </message>
    <message>
        <source>Settings (*.json);;All files (*)</source>
        <translation>設定 (*.json);;すべてのファイル (*)</translation>
    </message>
    <message>
        <source>The import was undone.</source>
        <translation>読み込みを取り消しました。</translation>
    </message>
    <message>
        <source>%1: choose a color</source>
        <translation>%1: 色を選ぶ</translation>
    </message>
    <message>
        <source>Launch at login</source>
        <translation>ログイン時に起動</translation>
    </message>
    <message>
        <source>Start Tavik Launcher quietly when you log in</source>
        <translation>ログイン時に Tavik Launcher を静かに起動します</translation>
    </message>
    <message>
        <source>The ring is then ready as soon as you are.</source>
        <translation>ログインするとすぐにリングが使えます。</translation>
    </message>
    <message>
        <source>General</source>
        <translation>一般</translation>
    </message>
    <message>
        <source>How the launcher starts and what the ring offers.</source>
        <translation>ランチャーの起動とリングの内容。</translation>
    </message>
    <message>
        <source>System</source>
        <translation>システム</translation>
    </message>
    <message>
        <source>Show in the Dock</source>
        <translation>Dock に表示</translation>
    </message>
    <message>
        <source>Windows of the launcher appear in the taskbar</source>
        <translation>ランチャーのウィンドウがタスクバーに表示されます</translation>
    </message>
    <message>
        <source>The ring itself is never listed there.</source>
        <translation>リング自体はタスクバーに表示されません。</translation>
    </message>
    <message>
        <source>Double-tap pins the ring</source>
        <translation>2 回押すとリングを固定</translation>
    </message>
    <message>
        <source>Tap a held shortcut twice and the ring stays open</source>
        <translation>押し続けるショートカットを 2 回押すと、リングが開いたままになります</translation>
    </message>
    <message>
        <source>A pinned ring stays until you launch something, press Escape, or click away.</source>
        <translation>固定したリングは、起動するか、Escape を押すか、外をクリックするまで残ります。</translation>
    </message>
    <message>
        <source>Fill with recent applications</source>
        <translation>最近のアプリで埋める</translation>
    </message>
    <message>
        <source>Empty slots show what you used last</source>
        <translation>空いた位置に最近使ったアプリを表示します</translation>
    </message>
    <message>
        <source>Pinned and running applications always come first.</source>
        <translation>固定したアプリと実行中のアプリが、いつも先に並びます。</translation>
    </message>
    <message>
        <source>Search all applications</source>
        <translation>すべてのアプリを検索</translation>
    </message>
    <message>
        <source>Typing also finds applications beyond the ring</source>
        <translation>入力すると、リングの外のアプリも見つかります</translation>
    </message>
    <message>
        <source>Otherwise only what the ring shows is searched.</source>
        <translation>オフでは、リングにあるものだけを検索します。</translation>
    </message>
    <message>
        <source>Interval</source>
        <translation>間隔</translation>
    </message>
    <message>
        <source>Launches from one hint to the next</source>
        <translation>次のヒントまでの起動回数</translation>
    </message>
    <message>
        <source>Hints</source>
        <translation>ヒント</translation>
    </message>
    <message>
        <source>Short tips in the middle of the ring, now and then.</source>
        <translation>ときどきリングの中央に出る、短いヒント。</translation>
    </message>
    <message>
        <source>Show hints</source>
        <translation>ヒントを表示</translation>
    </message>
    <message>
        <source>One tip at a time</source>
        <translation>1 回に 1 つ</translation>
    </message>
    <message>
        <source>Not shown while the center hint is kept visible, see Appearance</source>
        <translation>中央のヒントを表示している間は出ません。「外観」をご覧ください</translation>
    </message>
    <message>
        <source>All hints</source>
        <translation>すべてのヒント</translation>
    </message>
    <message>
        <source>Permanent Apps</source>
        <translation>常設アプリ</translation>
    </message>
    <message>
        <source>Always on the ring, clockwise from the top, whether they run or not.</source>
        <translation>起動中かどうかにかかわらず、いつもリングの上から時計回りに並びます。</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>追加</translation>
    </message>
    <message>
        <source>No application is called that.</source>
        <translation>その名前のアプリはありません。</translation>
    </message>
    <message>
        <source>Applications found</source>
        <translation>見つかったアプリ</translation>
    </message>
    <message>
        <source>On the ring</source>
        <translation>リング上</translation>
    </message>
    <message>
        <source>Nothing yet. Search above to add applications.</source>
        <translation>まだありません。上で検索してアプリを追加してください。</translation>
    </message>
    <message>
        <source>Permanent applications</source>
        <translation>常設アプリ</translation>
    </message>
    <message>
        <source>Drag to change the order, or press Alt with an arrow key. Delete removes.</source>
        <translation>ドラッグするか、Alt と矢印キーで並べ替えます。Delete で取り除きます。</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>検索</translation>
    </message>
    <message>
        <source>Search applications</source>
        <translation>アプリを検索</translation>
    </message>
    <message>
        <source>Type a name; Return adds the first application found.</source>
        <translation>名前を入力し、Return で最初に見つかったアプリを追加します。</translation>
    </message>
    <message>
        <source>Add…</source>
        <translation>追加…</translation>
    </message>
    <message>
        <source>Add an application</source>
        <translation>アプリを追加</translation>
    </message>
    <message>
        <source>Choose an application that the search does not find.</source>
        <translation>検索で見つからないアプリを選びます。</translation>
    </message>
    <message>
        <source>Add an Application</source>
        <translation>アプリを追加</translation>
    </message>
    <message>
        <source>Applications (*.desktop *.app)</source>
        <translation>アプリケーション (*.desktop *.app)</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>上へ</translation>
    </message>
    <message>
        <source>Move up</source>
        <translation>上へ</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>下へ</translation>
    </message>
    <message>
        <source>Move down</source>
        <translation>下へ</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>取り除く</translation>
    </message>
    <message>
        <source>Take the selected application off the ring.</source>
        <translation>選択したアプリをリングから取り除きます。</translation>
    </message>
    <message>
        <source>%1 is not an application.</source>
        <translation>%1 はアプリではありません。</translation>
    </message>
    <message>
        <source>Shortcut</source>
        <translation>ショートカット</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>テーマ</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>アップデート</translation>
    </message>
    <message>
        <source>Sections</source>
        <translation>セクション</translation>
    </message>
    <message>
        <source>What brings the ring up, anywhere.</source>
        <translation>どこからでもリングを呼び出すキー。</translation>
    </message>
    <message>
        <source>Trigger shortcut</source>
        <translation>呼び出しショートカット</translation>
    </message>
    <message>
        <source>Click, then press the new shortcut.</source>
        <translation>クリックしてから、新しいショートカットを押してください。</translation>
    </message>
    <message>
        <source>Press Modifier+Key for a tap-to-toggle shortcut. Or hold ≥2 modifier keys and release them to use a hold-to-show shortcut. Press Escape to cancel recording.</source>
        <translation>修飾キー+キーを押すと、切り替え式のショートカットになります。修飾キーを 2 つ以上押して放すと、押している間だけ表示します。Escape で記録を中止します。</translation>
    </message>
    <message>
        <source>Use Default Shortcut</source>
        <translation>標準に戻す</translation>
    </message>
    <message>
        <source>Go back to %1.</source>
        <translation>%1 に戻します。</translation>
    </message>
    <message>
        <source>Use It Anyway</source>
        <translation>それでも使う</translation>
    </message>
    <message>
        <source>Choose Another</source>
        <translation>別のものを選ぶ</translation>
    </message>
    <message>
        <source>%1 cannot be used. %2</source>
        <translation>%1 は使えません。%2</translation>
    </message>
    <message>
        <source>Press a shortcut…</source>
        <translation>ショートカットを押してください…</translation>
    </message>
    <message>
        <source>Trigger shortcut: %1</source>
        <translation>呼び出しショートカット: %1</translation>
    </message>
    <message>
        <source>Black</source>
        <translation>黒</translation>
    </message>
    <message>
        <source>Charcoal</source>
        <translation>チャコール</translation>
    </message>
    <message>
        <source>Graphite</source>
        <translation>グラファイト</translation>
    </message>
    <message>
        <source>Slate</source>
        <translation>スレート</translation>
    </message>
    <message>
        <source>Midnight</source>
        <translation>ミッドナイト</translation>
    </message>
    <message>
        <source>Navy</source>
        <translation>ネイビー</translation>
    </message>
    <message>
        <source>Forest</source>
        <translation>フォレスト</translation>
    </message>
    <message>
        <source>Pine</source>
        <translation>パイン</translation>
    </message>
    <message>
        <source>Plum</source>
        <translation>プラム</translation>
    </message>
    <message>
        <source>Aubergine</source>
        <translation>オーベルジーヌ</translation>
    </message>
    <message>
        <source>Oxblood</source>
        <translation>オックスブラッド</translation>
    </message>
    <message>
        <source>Espresso</source>
        <translation>エスプレッソ</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>青</translation>
    </message>
    <message>
        <source>Sky</source>
        <translation>スカイ</translation>
    </message>
    <message>
        <source>Cyan</source>
        <translation>シアン</translation>
    </message>
    <message>
        <source>Mint</source>
        <translation>ミント</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>緑</translation>
    </message>
    <message>
        <source>Lime</source>
        <translation>ライム</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>黄</translation>
    </message>
    <message>
        <source>Orange</source>
        <translation>オレンジ</translation>
    </message>
    <message>
        <source>Ember</source>
        <translation>エンバー</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>赤</translation>
    </message>
    <message>
        <source>Pink</source>
        <translation>ピンク</translation>
    </message>
    <message>
        <source>Purple</source>
        <translation>紫</translation>
    </message>
    <message>
        <source>Ready colors</source>
        <translation>用意された色</translation>
    </message>
    <message>
        <source>Dark Backgrounds</source>
        <translation>暗い背景</translation>
    </message>
    <message>
        <source>Accents</source>
        <translation>アクセント</translation>
    </message>
    <message>
        <source>More Colors…</source>
        <translation>ほかの色…</translation>
    </message>
    <message>
        <source>Apply a pre-made color theme to the ring; choosing Custom lets you set each color individually.</source>
        <translation>用意された配色をリングに適用します。「カスタム」では色を 1 つずつ設定できます。</translation>
    </message>
    <message>
        <source>Custom</source>
        <translation>カスタム</translation>
    </message>
    <message>
        <source>Colors</source>
        <translation>色</translation>
    </message>
    <message>
        <source>Ring color</source>
        <translation>リングの色</translation>
    </message>
    <message>
        <source>The band behind the icons</source>
        <translation>アイコンの背後の帯</translation>
    </message>
    <message>
        <source>Six hexadecimal digits, or a ready color from the well.</source>
        <translation>6 桁の 16 進数、または用意された色。</translation>
    </message>
    <message>
        <source>Highlight color</source>
        <translation>ハイライトの色</translation>
    </message>
    <message>
        <source>The wedge under the selection</source>
        <translation>選択部分のくさび形</translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation>不透明度</translation>
    </message>
    <message>
        <source>How solid the band is</source>
        <translation>帯の濃さ</translation>
    </message>
    <message>
        <source>Highlight</source>
        <translation>ハイライト</translation>
    </message>
    <message>
        <source>Strength of the wedge</source>
        <translation>くさび形の濃さ</translation>
    </message>
    <message>
        <source>Name label</source>
        <translation>名前ラベル</translation>
    </message>
    <message>
        <source>Background of names and hints</source>
        <translation>名前とヒントの背景</translation>
    </message>
    <message>
        <source>Running applications</source>
        <translation>実行中のアプリ</translation>
    </message>
    <message>
        <source>Mark running applications</source>
        <translation>実行中のアプリに印を付ける</translation>
    </message>
    <message>
        <source>A dot beside the icon of each</source>
        <translation>各アイコンの横の点</translation>
    </message>
    <message>
        <source>Dot color</source>
        <translation>点の色</translation>
    </message>
    <message>
        <source>Themes leave it as it is</source>
        <translation>テーマでは変わりません</translation>
    </message>
    <message>
        <source>Colors and opacity of the ring.</source>
        <translation>リングの色と不透明度。</translation>
    </message>
    <message>
        <source>Themes</source>
        <translation>テーマ</translation>
    </message>
    <message>
        <source>Restore Default Theme</source>
        <translation>標準のテーマに戻す</translation>
    </message>
    <message>
        <source>Restore all colors and opacity values to the default Tavik Classic theme.</source>
        <translation>すべての色と不透明度を標準のテーマ Tavik Classic に戻します。</translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation>頻度</translation>
    </message>
    <message>
        <source>How often to look for a new version</source>
        <translation>新しいバージョンを確認する頻度</translation>
    </message>
    <message>
        <source>Daily</source>
        <translation>毎日</translation>
    </message>
    <message>
        <source>Weekly</source>
        <translation>毎週</translation>
    </message>
    <message>
        <source>Monthly</source>
        <translation>毎月</translation>
    </message>
    <message>
        <source>New versions are never installed without asking you.</source>
        <translation>確認なしに新しいバージョンがインストールされることはありません。</translation>
    </message>
    <message>
        <source>This version</source>
        <translation>このバージョン</translation>
    </message>
    <message>
        <source>Check for updates automatically</source>
        <translation>アップデートを自動的に確認</translation>
    </message>
    <message>
        <source>A dot in the wheel&apos;s symbol or a notification tells of a new version</source>
        <translation>輪の中の点または通知が、新しいバージョンを知らせます</translation>
    </message>
    <message>
        <source>Look for a new version at once.</source>
        <translation>新しいバージョンをすぐに確認します。</translation>
    </message>
    <message>
        <source>Check Now</source>
        <translation>今すぐ確認</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>アップデートを確認…</translation>
    </message>
    <message>
        <source>About Tavik Launcher</source>
        <translation>Tavik Launcher について</translation>
    </message>
    <message>
        <source>Settings...</source>
        <translation>設定…</translation>
    </message>
    <message>
        <source>Show Tavik Launcher</source>
        <translation>Tavik Launcher を表示</translation>
    </message>
    <message>
        <source>Reindex Apps…</source>
        <translation>アプリを再登録…</translation>
    </message>
    <message>
        <source>Support…</source>
        <translation>サポート…</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>終了</translation>
    </message>
    <message>
        <source>Update to %1 Available…</source>
        <translation>%1 にアップデートできます…</translation>
    </message>
    <message>
        <source>Tavik Launcher — update available</source>
        <translation>Tavik Launcher — アップデートがあります</translation>
    </message>
    <message>
        <source>Release notes</source>
        <translation>リリースノート</translation>
    </message>
    <message>
        <source>The update is with your installer.</source>
        <translation>アップデートはインストーラーに渡されました。</translation>
    </message>
    <message>
        <source>Tavik Launcher %1 has been downloaded and verified. Your desktop&apos;s installer takes it from here. Once it is done, quit Tavik Launcher and start it again.</source>
        <translation>Tavik Launcher %1 をダウンロードして検証しました。ここからはデスクトップのインストーラーが引き継ぎます。終わったら、Tavik Launcher を終了して起動し直してください。</translation>
    </message>
    <message>
        <source>Looking for updates did not work.</source>
        <translation>アップデートを確認できませんでした。</translation>
    </message>
    <message>
        <source>The page could not be opened.</source>
        <translation>ページを開けませんでした。</translation>
    </message>
    <message>
        <source>The update was not installed.</source>
        <translation>アップデートはインストールされませんでした。</translation>
    </message>
    <message>
        <source>Software Update</source>
        <translation>ソフトウェアアップデート</translation>
    </message>
    <message>
        <source>A new version of Tavik Launcher is available.</source>
        <translation>Tavik Launcher の新しいバージョンがあります。</translation>
    </message>
    <message>
        <source>Version %1 is out; you have %2.</source>
        <translation>バージョン %1 が出ました。お使いのものは %2 です。</translation>
    </message>
    <message>
        <source>It cannot be installed from here. Its page tells how to get it.</source>
        <translation>ここからはインストールできません。入手方法はページにあります。</translation>
    </message>
    <message>
        <source>This version is important. Please install it soon.</source>
        <translation>このバージョンは重要です。早めにインストールしてください。</translation>
    </message>
    <message>
        <source>Fetching the release notes…</source>
        <translation>リリースノートを取得中…</translation>
    </message>
    <message>
        <source>There are no release notes.</source>
        <translation>リリースノートはありません。</translation>
    </message>
    <message>
        <source>Skip This Version</source>
        <translation>このバージョンをスキップ</translation>
    </message>
    <message>
        <source>Remind Me Later</source>
        <translation>後で知らせる</translation>
    </message>
    <message>
        <source>Learn More</source>
        <translation>詳しく見る</translation>
    </message>
    <message>
        <source>Install</source>
        <translation>インストール</translation>
    </message>
    <message>
        <source>The release notes could not be fetched. %1</source>
        <translation>リリースノートを取得できませんでした。%1</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>進行状況</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Not Now</source>
        <translation>後で</translation>
    </message>
    <message>
        <source>Install and Relaunch</source>
        <translation>インストールして再起動</translation>
    </message>
    <message>
        <source>Looking for a newer version…</source>
        <translation>新しいバージョンを確認中…</translation>
    </message>
    <message>
        <source>Downloading Tavik Launcher %1…</source>
        <translation>Tavik Launcher %1 をダウンロード中…</translation>
    </message>
    <message>
        <source>Connecting…</source>
        <translation>接続中…</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%2 中 %1</translation>
    </message>
    <message>
        <source>%1 — %2 per second</source>
        <translation>%1 — 毎秒 %2</translation>
    </message>
    <message>
        <source>Verifying the download…</source>
        <translation>ダウンロードを検証中…</translation>
    </message>
    <message>
        <source>Only what its maker has signed is installed.</source>
        <translation>作者が署名したものだけがインストールされます。</translation>
    </message>
    <message>
        <source>Ready to install.</source>
        <translation>インストールの準備ができました。</translation>
    </message>
    <message>
        <source>Tavik Launcher closes, and starts again as version %1.</source>
        <translation>Tavik Launcher は終了し、バージョン %1 として起動し直します。</translation>
    </message>
    <message>
        <source>Installing…</source>
        <translation>インストール中…</translation>
    </message>
    <message>
        <source>Tavik Launcher starts again in a moment.</source>
        <translation>Tavik Launcher はまもなく起動し直します。</translation>
    </message>
    <message>
        <source>If a permission prompt appeared, click Allow. Otherwise open Settings and enable the toggle next to Tavik Launcher.</source>
        <translation>許可を求める表示が出たら「許可」をクリックしてください。出ない場合は設定を開き、Tavik Launcher の横のスイッチをオンにしてください。</translation>
    </message>
    <message>
        <source>Not enabled yet — flip the toggle next to Tavik Launcher in Accessibility settings.</source>
        <translation>まだ有効ではありません — アクセシビリティ設定で、Tavik Launcher の横のスイッチをオンにしてください。</translation>
    </message>
    <message>
        <source>Enable Accessibility Access</source>
        <translation>アクセシビリティへのアクセスを有効にする</translation>
    </message>
    <message>
        <source>Open Accessibility Settings</source>
        <translation>アクセシビリティ設定を開く</translation>
    </message>
    <message>
        <source>Done — I&apos;ve Enabled It</source>
        <translation>完了 — 有効にしました</translation>
    </message>
    <message>
        <source>Skip for Now</source>
        <translation>今はスキップ</translation>
    </message>
    <message>
        <source>Hotkey Is Active</source>
        <translation>ホットキーは有効です</translation>
    </message>
    <message>
        <source>The global hotkey is now working. Tavik Launcher will appear over any app.</source>
        <translation>グローバルホットキーが使えるようになりました。Tavik Launcher はどのアプリの上にも表示されます。</translation>
    </message>
    <message>
        <source>Tavik Launcher needs Accessibility permission so the hotkey works when other apps are in the foreground.</source>
        <translation>ほかのアプリが前面にあるときもホットキーが働くように、Tavik Launcher にはアクセシビリティの許可が必要です。</translation>
    </message>
    <message>
        <source>Command Copied</source>
        <translation>コマンドをコピーしました</translation>
    </message>
    <message>
        <source>Copy the Command</source>
        <translation>コマンドをコピー</translation>
    </message>
    <message>
        <source>Press the shortcut</source>
        <translation>ショートカットを押す</translation>
    </message>
    <message>
        <source>Press %1 to toggle the ring at the pointer. Press it again or hit Esc to dismiss. Go ahead — try it right now!</source>
        <translation>%1 を押すと、ポインターの位置でリングを切り替えます。もう一度押すか Esc で閉じます。さあ — 今すぐ試してみましょう!</translation>
    </message>
    <message>
        <source>Hold the shortcut</source>
        <translation>ショートカットを押し続ける</translation>
    </message>
    <message>
        <source>Press and hold %1 to open the ring at the pointer. Release to dismiss unless search mode is active. Go ahead — try it right now!</source>
        <translation>%1 を押し続けると、ポインターの位置にリングが開きます。検索モードでなければ、放すと閉じます。さあ — 今すぐ試してみましょう!</translation>
    </message>
    <message>
        <source>Move or type</source>
        <translation>動かすか入力する</translation>
    </message>
    <message>
        <source>Hover an app slice to select it, or type to filter. Typing pins the ring until you launch, press Esc, or click away.</source>
        <translation>アプリの部分にポインターを重ねて選ぶか、入力して絞り込みます。入力すると、起動するか Esc を押すか外をクリックするまで、リングが固定されます。</translation>
    </message>
    <message>
        <source>Pin your favorites</source>
        <translation>お気に入りを固定</translation>
    </message>
    <message>
        <source>Add permanent apps in Settings, then drag pinned apps to lock their clockwise ring order.</source>
        <translation>設定で常設アプリを追加し、ドラッグして時計回りの順番を決めます。</translation>
    </message>
    <message>
        <source>Tune the look</source>
        <translation>見た目を整える</translation>
    </message>
    <message>
        <source>Adjust size, spacing, colors, opacity, themes, and the global shortcut whenever you want.</source>
        <translation>大きさ、間隔、色、不透明度、テーマ、ショートカットは、いつでも変えられます。</translation>
    </message>
    <message>
        <source>Open Settings</source>
        <translation>設定を開く</translation>
    </message>
    <message>
        <source>Start Using Tavik</source>
        <translation>使い始める</translation>
    </message>
    <message>
        <source>Tavik Launcher keeps an index of every app in your Applications folders — it powers the ring and search.</source>
        <translation>Tavik Launcher は、アプリケーションフォルダーにあるすべてのアプリの一覧を持ち、リングと検索に使います。</translation>
    </message>
    <message>
        <source>The index refreshes itself automatically whenever you open the ring, so you rarely need this. Run it manually if an app you just installed isn&apos;t showing up in search, or after moving apps between folders.</source>
        <translation>一覧はリングを開くたびに自動で更新されるので、この操作はめったに必要ありません。入れたばかりのアプリが検索に出ないときや、アプリを別のフォルダーに移した後に、手動で実行してください。</translation>
    </message>
    <message>
        <source>All set. You can verify it worked by opening the ring and typing the name of a recently installed app.</source>
        <translation>完了しました。リングを開き、最近入れたアプリの名前を入力すると確かめられます。</translation>
    </message>
    <message>
        <source>Scanning…</source>
        <translation>調べています…</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Reindex Now</source>
        <translation>今すぐ再登録</translation>
    </message>
    <message numerus="yes">
        <source>Indexed %n apps</source>
        <translation>
            <numerusform>アプリ %n 個を登録しました</numerusform>
        </translation>
    </message>
    <message>
        <source>Input Monitoring</source>
        <translation>入力監視</translation>
    </message>
    <message>
        <source>Full Disk Access</source>
        <translation>フルディスクアクセス</translation>
    </message>
    <message>
        <source>Accessibility</source>
        <translation>アクセシビリティ</translation>
    </message>
    <message>
        <source>Privacy &amp; Security</source>
        <translation>プライバシーとセキュリティ</translation>
    </message>
    <message>
        <source>Enable here</source>
        <translation>ここをオンに</translation>
    </message>
    <message>
        <source>It is no application that can be started.</source>
        <translation>起動できるアプリではありません。</translation>
    </message>
    <message>
        <source>The file “%1” may not be executed. Allow that in its properties first.</source>
        <translation>ファイル「%1」は実行が許可されていません。先にプロパティで許可してください。</translation>
    </message>
    <message>
        <source>It names no program to start.</source>
        <translation>起動するプログラムの名前がありません。</translation>
    </message>
    <message>
        <source>It needs a terminal, and none is installed.</source>
        <translation>端末が必要ですが、インストールされていません。</translation>
    </message>
    <message>
        <source>The application has no program to start.</source>
        <translation>このアプリには起動するプログラムがありません。</translation>
    </message>
    <message>
        <source>no program is installed for it</source>
        <translation>対応するプログラムがインストールされていません</translation>
    </message>
    <message>
        <source>The program cannot be started.</source>
        <translation>プログラムを起動できません。</translation>
    </message>
    <message>
        <source>There is no program to start.</source>
        <translation>起動するプログラムがありません。</translation>
    </message>
    <message>
        <source>“%1” could not be opened</source>
        <translation>「%1」を開けませんでした</translation>
    </message>
    <message>
        <source>GNOME lets programs listen for no key, so a custom shortcut is added to its keyboard settings for as long as Tavik Launcher runs.</source>
        <translation>GNOME ではプログラムがキーを待ち受けられないため、Tavik Launcher の実行中だけ、キーボード設定にカスタムショートカットが追加されます。</translation>
    </message>
    <message>
        <source>Summon the ring</source>
        <translation>リングを呼び出す</translation>
    </message>
    <message>
        <source>KDE gives programs no shortcut of modifiers alone, so it is asked for the same modifiers with Space. System Settings › Shortcuts lists it.</source>
        <translation>KDE では修飾キーだけのショートカットは使えないため、同じ修飾キーと Space の組み合わせになります。システム設定 › ショートカットに表示されます。</translation>
    </message>
    <message>
        <source>%1 is not a regular file</source>
        <translation>%1 は通常のファイルではありません</translation>
    </message>
    <message>
        <source>The folder %1 cannot be made</source>
        <translation>フォルダー %1 を作成できません</translation>
    </message>
    <message>
        <source>“%1” could not be opened: %2.</source>
        <translation>「%1」を開けませんでした: %2。</translation>
    </message>
    <message>
        <source>in Settings › Keyboard › View and Customize Shortcuts</source>
        <translation>設定 › キーボード › ショートカットの表示とカスタマイズで</translation>
    </message>
    <message>
        <source>in System Settings › Shortcuts</source>
        <translation>システム設定 › ショートカットで</translation>
    </message>
    <message>
        <source>in Settings › Keyboard › Application Shortcuts</source>
        <translation>設定 › キーボード › アプリケーションショートカットで</translation>
    </message>
    <message>
        <source>in System Settings › Keyboard › Shortcuts</source>
        <translation>システム設定 › キーボード › ショートカットで</translation>
    </message>
    <message>
        <source>in Control Center › Keyboard Shortcuts</source>
        <translation>コントロールセンター › キーボードショートカットで</translation>
    </message>
    <message>
        <source>in Configuration Center › Shortcut Keys</source>
        <translation>設定センター › ショートカットキーで</translation>
    </message>
    <message>
        <source>with bindsym in the configuration of sway</source>
        <translation>sway の設定の bindsym で</translation>
    </message>
    <message>
        <source>with bind in the configuration of Hyprland</source>
        <translation>Hyprland の設定の bind で</translation>
    </message>
    <message>
        <source>where your desktop or window manager keeps its shortcuts</source>
        <translation>デスクトップまたはウィンドウマネージャーのショートカット設定で</translation>
    </message>
    <message>
        <source>A Wayland desktop tells no program which keys are held while another one is in front.</source>
        <translation>Wayland のデスクトップでは、ほかのプログラムが前面にある間、どのキーが押されているかをプログラムは知ることができません。</translation>
    </message>
    <message>
        <source>Bind the command %1 to a key of your choice %2.</source>
        <translation>%2、コマンド %1 を好きなキーに割り当ててください。</translation>
    </message>
    <message>
        <source>The update cannot be downloaded, because its address is not a safe one.</source>
        <translation>アドレスが安全でないため、アップデートをダウンロードできません。</translation>
    </message>
    <message>
        <source>The update is not signed, so it cannot be installed.</source>
        <translation>アップデートに署名がないため、インストールできません。</translation>
    </message>
    <message>
        <source>The update&apos;s signature is damaged, so it cannot be installed.</source>
        <translation>アップデートの署名が壊れているため、インストールできません。</translation>
    </message>
    <message>
        <source>The update does not say how large it is, so it cannot be installed.</source>
        <translation>アップデートの大きさがわからないため、インストールできません。</translation>
    </message>
    <message>
        <source>The update is larger than %1 MB, so it cannot be installed.</source>
        <translation>アップデートが %1 MB を超えているため、インストールできません。</translation>
    </message>
    <message>
        <source>Its makers have not signed which version it is, so it cannot be installed.</source>
        <translation>どのバージョンかが署名されていないため、インストールできません。</translation>
    </message>
    <message>
        <source>The server answered with a web page instead of a list of updates.</source>
        <translation>サーバーは、アップデートの一覧ではなくウェブページを返しました。</translation>
    </message>
    <message>
        <source>The server answered with something other than a list of updates.</source>
        <translation>サーバーは、アップデートの一覧ではないものを返しました。</translation>
    </message>
    <message>
        <source>The list of updates declares a document type, which is not allowed.</source>
        <translation>アップデートの一覧に、許可されていない文書型の宣言があります。</translation>
    </message>
    <message>
        <source>The list of updates is damaged: it has an element that is too long.</source>
        <translation>アップデートの一覧が壊れています: 長すぎる要素があります。</translation>
    </message>
    <message>
        <source>The list of updates is damaged: its elements are nested too deep.</source>
        <translation>アップデートの一覧が壊れています: 要素の入れ子が深すぎます。</translation>
    </message>
    <message>
        <source>The list of updates has more than %1 entries.</source>
        <translation>アップデートの一覧の項目が %1 個を超えています。</translation>
    </message>
    <message>
        <source>The list of updates is damaged in line %1.</source>
        <translation>アップデートの一覧の %1 行目が壊れています。</translation>
    </message>
    <message>
        <source>The list of updates is empty.</source>
        <translation>アップデートの一覧が空です。</translation>
    </message>
    <message>
        <source>The list of updates is too large.</source>
        <translation>アップデートの一覧が大きすぎます。</translation>
    </message>
    <message>
        <source>The list of updates is not valid text in UTF-8.</source>
        <translation>アップデートの一覧が正しい UTF-8 のテキストではありません。</translation>
    </message>
    <message>
        <source>%1 is available, but it needs Linux %2 or newer. This computer runs Linux %3.</source>
        <translation>%1 がありますが、Linux %2 以降が必要です。このコンピューターは Linux %3 です。</translation>
    </message>
    <message>
        <source>%1 is available, but not for systems newer than Linux %2. This computer runs Linux %3.</source>
        <translation>%1 がありますが、Linux %2 より新しいシステムには対応していません。このコンピューターは Linux %3 です。</translation>
    </message>
    <message>
        <source>You chose to skip %1.</source>
        <translation>%1 はスキップ済みです。</translation>
    </message>
    <message>
        <source>%1 is being handed out step by step and will come to this computer later.</source>
        <translation>%1 は段階的に配布されており、このコンピューターには後で届きます。</translation>
    </message>
    <message>
        <source>%1 is available, but there is no page to read about it.</source>
        <translation>%1 がありますが、説明のページがありません。</translation>
    </message>
    <message>
        <source>%1 is available, but not as a file that can be installed here.</source>
        <translation>%1 がありますが、ここにインストールできるファイルではありません。</translation>
    </message>
    <message>
        <source>%1 is available. %2</source>
        <translation>%1 があります。%2</translation>
    </message>
    <message>
        <source>You&apos;re up to date. Tavik Launcher %1 is newer than the newest on offer, %2.</source>
        <translation>最新です。Tavik Launcher %1 は、提供されている最新の %2 より新しいものです。</translation>
    </message>
    <message>
        <source>You&apos;re up to date. %1 is the newest version.</source>
        <translation>最新です。%1 が最新バージョンです。</translation>
    </message>
    <message>
        <source>The list of updates has no version for this computer.</source>
        <translation>アップデートの一覧に、このコンピューター用のバージョンがありません。</translation>
    </message>
    <message>
        <source>The list of updates is older than one seen before: its newest signed version is %1, but %2 was there already. Nothing is installed from it.</source>
        <translation>アップデートの一覧が以前のものより古くなっています。署名された最新は %1 ですが、すでに %2 がありました。ここからは何もインストールしません。</translation>
    </message>
    <message>
        <source>Newer versions come the way this one came: from your package manager, or from whoever built it for you.</source>
        <translation>新しいバージョンは、このバージョンと同じ経路で届きます。パッケージマネージャー、またはビルドした人からです。</translation>
    </message>
    <message>
        <source>It was made without an update feed.</source>
        <translation>アップデートの一覧なしで作られました。</translation>
    </message>
    <message>
        <source>It was made without a key to tell genuine updates by.</source>
        <translation>本物のアップデートを見分ける鍵なしで作られました。</translation>
    </message>
    <message>
        <source>It was made with an update feed at an address that is not safe: “%1”.</source>
        <translation>安全でないアドレスのアップデート一覧で作られました:「%1」。</translation>
    </message>
    <message>
        <source>It was made with a key for updates that is none.</source>
        <translation>正しくないアップデートの鍵で作られました。</translation>
    </message>
    <message>
        <source>The new version could not be put in the place of “%1”: %2.</source>
        <translation>新しいバージョンを「%1」と置き換えられませんでした: %2。</translation>
    </message>
    <message>
        <source>“%1”, which this program was started from, is no longer there or is something else now.</source>
        <translation>このプログラムの起動元「%1」は、もうないか、別のものになっています。</translation>
    </message>
    <message>
        <source>The folder “%1”, which this program was started from, may not be changed by you. Move the program to a folder of your own, or replace it as an administrator.</source>
        <translation>このプログラムの起動元のフォルダー「%1」は変更できません。プログラムを自分のフォルダーに移すか、管理者として置き換えてください。</translation>
    </message>
    <message>
        <source>The update is not an AppImage, as this program is.</source>
        <translation>このアップデートは、このプログラムのような AppImage ではありません。</translation>
    </message>
    <message>
        <source>The update is made for another kind of computer.</source>
        <translation>このアップデートは別の種類のコンピューター用です。</translation>
    </message>
    <message>
        <source>The update does not say when it was made.</source>
        <translation>アップデートの作成日時がわかりません。</translation>
    </message>
    <message>
        <source>The update is older than this program, whatever its number says.</source>
        <translation>番号にかかわらず、アップデートはこのプログラムより古いものです。</translation>
    </message>
    <message>
        <source>Another Tavik Launcher is being updated in the folder “%1”.</source>
        <translation>フォルダー「%1」で、別の Tavik Launcher が更新中です。</translation>
    </message>
    <message>
        <source>There is not enough room for the update in the folder “%1”.</source>
        <translation>フォルダー「%1」に、アップデートのための空きが足りません。</translation>
    </message>
    <message>
        <source>The update could not be written to the folder “%1”: %2.</source>
        <translation>アップデートをフォルダー「%1」に書き込めませんでした: %2。</translation>
    </message>
    <message>
        <source>The update on the server is not the one that was announced: its length is another.</source>
        <translation>サーバーのアップデートは予告されたものではありません: 長さが違います。</translation>
    </message>
    <message>
        <source>The update</source>
        <translation>アップデート</translation>
    </message>
    <message>
        <source>The server did not continue where it was asked to.</source>
        <translation>サーバーは、求めた位置から続けませんでした。</translation>
    </message>
    <message>
        <source>The folder “%1” cannot be used for the update.</source>
        <translation>フォルダー「%1」はアップデートに使えません。</translation>
    </message>
    <message>
        <source>%1 is not on the server.</source>
        <translation>%1がサーバーにありません。</translation>
    </message>
    <message>
        <source>The server answered with an error (%1).</source>
        <translation>サーバーがエラーを返しました (%1)。</translation>
    </message>
    <message>
        <source>The server sent something packed, which was refused.</source>
        <translation>サーバーが圧縮したものを送ってきたため、拒否しました。</translation>
    </message>
    <message>
        <source>The server “%1” was not found. Perhaps this computer is not connected to the internet.</source>
        <translation>サーバー「%1」が見つかりません。インターネットに接続していないのかもしれません。</translation>
    </message>
    <message>
        <source>The server “%1” cannot be reached.</source>
        <translation>サーバー「%1」に接続できません。</translation>
    </message>
    <message>
        <source>The server “%1” could not prove who it is: its certificate is not valid here.</source>
        <translation>サーバー「%1」は身元を証明できませんでした: 証明書がここでは有効ではありません。</translation>
    </message>
    <message>
        <source>No protected connection to the server “%1” could be made.</source>
        <translation>サーバー「%1」と保護された接続を確立できませんでした。</translation>
    </message>
    <message>
        <source>The proxy of this network let nothing through.</source>
        <translation>このネットワークのプロキシが何も通しませんでした。</translation>
    </message>
    <message>
        <source>The connection to the server broke off.</source>
        <translation>サーバーとの接続が切れました。</translation>
    </message>
    <message>
        <source>The list of updates</source>
        <translation>アップデートの一覧</translation>
    </message>
    <message>
        <source>The text about the new version</source>
        <translation>新しいバージョンの説明</translation>
    </message>
    <message>
        <source>What the server sent about the new version is no text.</source>
        <translation>新しいバージョンについてサーバーが送ったものは、テキストではありません。</translation>
    </message>
    <message>
        <source>The downloaded update is not a file that belongs to you alone.</source>
        <translation>ダウンロードしたアップデートは、あなただけのファイルではありません。</translation>
    </message>
    <message>
        <source>The downloaded update has %1 bytes instead of %2. It will not be installed.</source>
        <translation>ダウンロードしたアップデートは %2 バイトではなく %1 バイトです。インストールしません。</translation>
    </message>
    <message>
        <source>The downloaded update could not be read.</source>
        <translation>ダウンロードしたアップデートを読み取れませんでした。</translation>
    </message>
    <message>
        <source>The downloaded update was changed while it was being verified.</source>
        <translation>ダウンロードしたアップデートが、検証中に変更されました。</translation>
    </message>
    <message>
        <source>The downloaded update is not signed by the makers of Tavik Launcher. It will not be installed.</source>
        <translation>ダウンロードしたアップデートは、Tavik Launcher の作者の署名ではありません。インストールしません。</translation>
    </message>
    <message>
        <source>This build has no usable key to verify updates with.</source>
        <translation>このビルドには、アップデートを検証できる鍵がありません。</translation>
    </message>
    <message>
        <source>The update has no size that can be installed.</source>
        <translation>アップデートの大きさが、インストールできるものではありません。</translation>
    </message>
    <message>
        <source>Updates cannot be verified on this computer.</source>
        <translation>このコンピューターではアップデートを検証できません。</translation>
    </message>
    <message>
        <source>The server stopped answering.</source>
        <translation>サーバーが応答しなくなりました。</translation>
    </message>
    <message>
        <source>The server is too slow.</source>
        <translation>サーバーが遅すぎます。</translation>
    </message>
    <message>
        <source>%1 would come over an unprotected connection.</source>
        <translation>%1が保護されていない接続で届こうとしています。</translation>
    </message>
    <message>
        <source>The system lets no process be started for the download.</source>
        <translation>ダウンロードのプロセスを起動できません。</translation>
    </message>
    <message>
        <source>The server wanted to go on over an unprotected connection, which was refused.</source>
        <translation>サーバーが保護されていない接続で続けようとしたため、拒否しました。</translation>
    </message>
    <message>
        <source>The server only points from one address to the next.</source>
        <translation>サーバーが次々に別のアドレスを示すだけです。</translation>
    </message>
    <message>
        <source>The server sent far more than it was asked for.</source>
        <translation>サーバーが、求めたよりはるかに多くを送ってきました。</translation>
    </message>
    <message>
        <source>%1 is larger than the %2 MB it may have.</source>
        <translation>%1が、許される %2 MB を超えています。</translation>
    </message>
    <message>
        <source>This X server lacks the extensions, RECORD and XKEYBOARD, that tell a program which keys are held.</source>
        <translation>この X サーバーには、押されているキーをプログラムに知らせる拡張 RECORD と XKEYBOARD がありません。</translation>
    </message>
    <message>
        <source>d MMMM yyyy</source>
        <translation>yyyy年M月d日</translation>
    </message>
    <message>
        <source>press the shortcut: for a key that the desktop binds</source>
        <translation>ショートカットを押します（デスクトップがキーに割り当てるためのもの）</translation>
    </message>
    <message>
        <source>show the ring</source>
        <translation>リングを表示します</translation>
    </message>
    <message>
        <source>show the ring at the pointer, or hide it</source>
        <translation>ポインタの位置にリングを表示するか、隠します</translation>
    </message>
    <message>
        <source>hide the ring</source>
        <translation>リングを隠します</translation>
    </message>
    <message>
        <source>open the settings, with =SECTION at that section</source>
        <translation>設定を開きます（=SECTION でその項目）</translation>
    </message>
    <message>
        <source>open the window that rebuilds the application index</source>
        <translation>アプリの索引を作り直すウインドウを開きます</translation>
    </message>
    <message>
        <source>show the tour</source>
        <translation>ツアーを表示します</translation>
    </message>
    <message>
        <source>ask for a newer version</source>
        <translation>新しいバージョンを確認します</translation>
    </message>
    <message>
        <source>end the running launcher</source>
        <translation>実行中のランチャーを終了します</translation>
    </message>
    <message>
        <source>Usage: tavik-launcher [option]</source>
        <translation>使い方: tavik-launcher [オプション]</translation>
    </message>
    <message>
        <source>Without an option: start the launcher, or show the ring of the one that runs.</source>
        <translation>オプションなし: ランチャーを起動するか、実行中のランチャーのリングを表示します。</translation>
    </message>
    <message>
        <source>start as at login: nothing is shown unasked</source>
        <translation>ログイン時と同じように起動します（自動では何も表示しません）</translation>
    </message>
    <message>
        <source>print the version, and how the screen is reached</source>
        <translation>バージョンと、画面への接続方法を表示します</translation>
    </message>
    <message>
        <source>print this text</source>
        <translation>この説明を表示します</translation>
    </message>
    <message>
        <source>the settings have no section &quot;%1&quot;; there are %2</source>
        <translation>設定に「%1」という項目はありません。%2 があります</translation>
    </message>
    <message>
        <source>one option at a time</source>
        <translation>オプションは一度に一つだけです</translation>
    </message>
    <message>
        <source>unknown option %1</source>
        <translation>不明なオプション: %1</translation>
    </message>
    <message>
        <source>%1 takes no value</source>
        <translation>%1 に値は指定できません</translation>
    </message>
    <message>
        <source>1 match</source>
        <translation>1 件見つかりました</translation>
    </message>
    <message numerus="yes">
        <source>%n matches</source>
        <translation>
            <numerusform>%n 件見つかりました</numerusform>
        </translation>
    </message>
    <message>
        <source>Trigger</source>
        <translation>呼び出しキー</translation>
    </message>
    <message>
        <source>Nobody listens.</source>
        <translation>待ち受けているものがありません。</translation>
    </message>
    <message>
        <source>Tavik Launcher is not running. Start it.</source>
        <translation>Tavik Launcher が動作していません。起動してください。</translation>
    </message>
    <message>
        <source>Release</source>
        <translation>キーを放す</translation>
    </message>
    <message>
        <source>Not needed: %1 is pressed once to open and once to close.</source>
        <translation>不要です。%1 を一度押すと開き、もう一度押すと閉じます。</translation>
    </message>
    <message>
        <source>Tray</source>
        <translation>トレイ</translation>
    </message>
    <message>
        <source>The panel shows what is described to it.</source>
        <translation>パネルは項目の説明を受け取って表示します。</translation>
    </message>
    <message>
        <source>The panel takes small windows, as older ones do.</source>
        <translation>パネルは旧方式の小さなウィンドウを受け入れます。</translation>
    </message>
    <message>
        <source>No panel shows status items.</source>
        <translation>状態アイコンを表示するパネルがありません。</translation>
    </message>
    <message>
        <source>Add a tray to your panel; for GNOME there is an extension. Meanwhile this command opens the settings.</source>
        <translation>パネルにトレイを追加してください。GNOME には拡張機能があります。それまではこのコマンドで設定が開きます。</translation>
    </message>
    <message>
        <source>Autostart</source>
        <translation>自動起動</translation>
    </message>
    <message>
        <source>This session has started the launcher.</source>
        <translation>このセッションがランチャーを起動しました。</translation>
    </message>
    <message>
        <source>This session is not known to read the autostart folder.</source>
        <translation>このセッションが自動起動フォルダーを読むかどうかは不明です。</translation>
    </message>
    <message>
        <source>Add this line to what your session starts.</source>
        <translation>セッションが起動するものにこの行を追加してください。</translation>
    </message>
    <message>
        <source>An entry in the autostart folder.</source>
        <translation>自動起動フォルダーの項目。</translation>
    </message>
    <message>
        <source>There is no entry in the autostart folder.</source>
        <translation>自動起動フォルダーに項目がありません。</translation>
    </message>
    <message>
        <source>The launcher does not start when you log in.</source>
        <translation>ログイン時にランチャーが起動しません。</translation>
    </message>
    <message>
        <source>The entry in the autostart folder is switched off.</source>
        <translation>自動起動フォルダーの項目がオフになっています。</translation>
    </message>
    <message>
        <source>The launcher&apos;s program is not where it was. Install it again.</source>
        <translation>ランチャーのプログラムが元の場所にありません。再インストールしてください。</translation>
    </message>
    <message>
        <source>Pointer</source>
        <translation>ポインター</translation>
    </message>
    <message>
        <source>Overlay</source>
        <translation>ウィンドウの前面</translation>
    </message>
    <message>
        <source>Running programs</source>
        <translation>実行中のプログラム</translation>
    </message>
    <message>
        <source>Bringing to the front</source>
        <translation>前面に出す</translation>
    </message>
    <message>
        <source>Set Up</source>
        <translation>設定する</translation>
    </message>
    <message>
        <source>Choose Shortcut</source>
        <translation>ショートカットを選ぶ</translation>
    </message>
    <message>
        <source>Turn On</source>
        <translation>オンにする</translation>
    </message>
    <message>
        <source>This desktop gives the launcher all it needs.</source>
        <translation>このデスクトップはランチャーに必要なものをすべて備えています。</translation>
    </message>
    <message>
        <source>Needs your attention: %1 of %2.</source>
        <translation>確認が必要: %2 件中 %1 件。</translation>
    </message>
    <message>
        <source>print what this desktop gives the launcher, and what not</source>
        <translation>このデスクトップにあるものと足りないものを表示する</translation>
    </message>
    <message>
        <source>Check My Desktop</source>
        <translation>デスクトップの確認</translation>
    </message>
    <message>
        <source>What the launcher needs of this desktop, and how it has it.</source>
        <translation>ランチャーがデスクトップに必要とするものと、その実現方法。</translation>
    </message>
    <message>
        <source>%1: works</source>
        <translation>%1: 正常</translation>
    </message>
    <message>
        <source>%1: needs your attention</source>
        <translation>%1: 確認が必要</translation>
    </message>
    <message>
        <source>Copy Line</source>
        <translation>行をコピー</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>コピーしました</translation>
    </message>
    <message>
        <source>Nobody tells of other programs&apos; windows.</source>
        <translation>ほかのプログラムのウィンドウは通知されません。</translation>
    </message>
    <message>
        <source>Programs are seen to run only by their name on the session bus or their systemd unit.</source>
        <translation>プログラムは、セッションバス上の名前か systemd のユニットによってのみ実行中と分かります。</translation>
    </message>
    <message>
        <source>Nobody brings other programs&apos; windows to the front.</source>
        <translation>ほかのプログラムのウィンドウを前面に出す手段がありません。</translation>
    </message>
    <message>
        <source>A program that runs is started once more, unless it has a name on the session bus.</source>
        <translation>実行中のプログラムは、セッションバスに名前を持たない限り、もう一度起動されます。</translation>
    </message>
    <message>
        <source>Custom shortcuts in GNOME&apos;s keyboard settings.</source>
        <translation>GNOME のキーボード設定のカスタムショートカット。</translation>
    </message>
    <message>
        <source>A global shortcut of KDE, which System Settings › Shortcuts lists.</source>
        <translation>KDE のグローバルショートカット。システム設定 › ショートカットに表示されます。</translation>
    </message>
    <message>
        <source>A script inside of KWin lists its windows.</source>
        <translation>KWin 内のスクリプトがウィンドウを一覧します。</translation>
    </message>
    <message>
        <source>The desktop does not answer.</source>
        <translation>デスクトップが応答しません。</translation>
    </message>
    <message>
        <source>KWin brings a window forward as for KDE&apos;s own search.</source>
        <translation>KDE の検索と同じように KWin がウィンドウを前面に出します。</translation>
    </message>
    <message>
        <source>The desktop tells it, and so does the ring&apos;s own keyboard.</source>
        <translation>デスクトップとリング自身のキーボードの両方から分かります。</translation>
    </message>
    <message>
        <source>Bindings that sway holds while Tavik Launcher runs.</source>
        <translation>Tavik Launcher の動作中に sway が保持するキー割り当て。</translation>
    </message>
    <message>
        <source>Its configuration uses the same keys for “%1”, which rests while Tavik Launcher runs.</source>
        <translation>sway の設定では同じキーが「%1」に割り当てられており、Tavik Launcher の動作中は働きません。</translation>
    </message>
    <message>
        <source>sway lists its windows.</source>
        <translation>sway がウィンドウを一覧します。</translation>
    </message>
    <message>
        <source>sway&apos;s command to focus a window.</source>
        <translation>ウィンドウにフォーカスする sway のコマンド。</translation>
    </message>
    <message>
        <source>Only the keys of the launcher&apos;s own windows.</source>
        <translation>ランチャー自身のウィンドウのキーだけ。</translation>
    </message>
    <message>
        <source>The ring&apos;s own keyboard, while it is open.</source>
        <translation>リングが開いている間のリング自身のキーボード。</translation>
    </message>
    <message>
        <source>The compositor lists its windows for taskbars.</source>
        <translation>コンポジターがタスクバー向けにウィンドウを一覧します。</translation>
    </message>
    <message>
        <source>A request to the compositor, as taskbars make it.</source>
        <translation>タスクバーと同じコンポジターへの要求。</translation>
    </message>
    <message>
        <source>An invisible surface on each screen, which the pointer enters.</source>
        <translation>各画面の見えない面にポインターが入ることで分かります。</translation>
    </message>
    <message>
        <source>This session has no pointer.</source>
        <translation>このセッションにはポインターがありません。</translation>
    </message>
    <message>
        <source>A surface in the compositor&apos;s layer above all windows.</source>
        <translation>すべてのウィンドウの上にあるコンポジターのレイヤーの面。</translation>
    </message>
    <message>
        <source>The X server tells which modifiers are held.</source>
        <translation>押されている修飾キーを X サーバーが知らせます。</translation>
    </message>
    <message>
        <source>The X server reserves the key for the launcher.</source>
        <translation>X サーバーがランチャーのためにキーを確保します。</translation>
    </message>
    <message>
        <source>The X server tells where it is.</source>
        <translation>位置を X サーバーが知らせます。</translation>
    </message>
    <message>
        <source>Beside a Wayland desktop it knows that only over its own windows: the ring may open elsewhere.</source>
        <translation>Wayland デスクトップでは自分のウィンドウの上でしか分からないため、リングが別の場所に開くことがあります。</translation>
    </message>
    <message>
        <source>A window that the window manager keeps above the others.</source>
        <translation>ウィンドウマネージャーが最前面に保つウィンドウ。</translation>
    </message>
    <message>
        <source>A window of its own above all others.</source>
        <translation>ほかのすべての上にある独自のウィンドウ。</translation>
    </message>
    <message>
        <source>The window manager lists its windows.</source>
        <translation>ウィンドウマネージャーがウィンドウを一覧します。</translation>
    </message>
    <message>
        <source>Programs other than X11&apos;s are seen to run only by their name on the session bus or their systemd unit.</source>
        <translation>X11 以外のプログラムは、セッションバス上の名前か systemd のユニットによってのみ実行中と分かります。</translation>
    </message>
    <message>
        <source>No window manager runs, or an old one that lists none.</source>
        <translation>ウィンドウマネージャーがないか、一覧を出さない古いものです。</translation>
    </message>
    <message>
        <source>A request to the window manager.</source>
        <translation>ウィンドウマネージャーへの要求。</translation>
    </message>
    <message>
        <source>Programs other than X11&apos;s are started once more, unless they have a name on the session bus.</source>
        <translation>X11 以外のプログラムは、セッションバスに名前を持たない限り、もう一度起動されます。</translation>
    </message>
    <message>
        <source>The desktop places the ring.</source>
        <translation>リングの位置はデスクトップが決めます。</translation>
    </message>
    <message>
        <source>This desktop tells no program where the pointer is.</source>
        <translation>このデスクトップはポインターの位置をプログラムに知らせません。</translation>
    </message>
    <message>
        <source>A window like any other.</source>
        <translation>ほかと同じ普通のウィンドウ。</translation>
    </message>
    <message>
        <source>This desktop lets no program keep a window above the others.</source>
        <translation>このデスクトップではプログラムがウィンドウを最前面に保てません。</translation>
    </message>
    <message>
        <source>A global shortcut that the desktop gives.</source>
        <translation>デスクトップが割り当てるグローバルショートカット。</translation>
    </message>
    <message>
        <source>A global shortcut that the desktop gives: %1.</source>
        <translation>デスクトップが割り当てるグローバルショートカット: %1。</translation>
    </message>
    <message>
        <source>The desktop was asked for a shortcut and has given none. Check My Desktop in the settings can ask again.</source>
        <translation>デスクトップにショートカットを要求しましたが、割り当てられませんでした。設定の「デスクトップの確認」からもう一度要求できます。</translation>
    </message>
    <message>
        <source>This desktop gives a program a shortcut after it has asked you.</source>
        <translation>このデスクトップは、確認のうえでプログラムにショートカットを割り当てます。</translation>
    </message>
    <message>
        <source>It knows none of modifiers alone, so the same modifiers with Space are proposed.</source>
        <translation>修飾キーだけのショートカットには対応しないため、同じ修飾キーと Space の組み合わせを提案します。</translation>
    </message>
    <message>
        <source>Add this line to the configuration of your desktop: %1</source>
        <translation>デスクトップの設定に次の行を追加してください: %1</translation>
    </message>
    <message>
        <source>A shortcut that Hyprland&apos;s configuration gives.</source>
        <translation>Hyprland の設定が割り当てるショートカット。</translation>
    </message>
    <message>
        <source>Hyprland gives a shortcut to the program that its configuration names. It is active as soon as you have pressed it once.</source>
        <translation>Hyprland は、設定に書かれたプログラムにショートカットを割り当てます。一度押すと有効になります。</translation>
    </message>
</context>
</TS>
