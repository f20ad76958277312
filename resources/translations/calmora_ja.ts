<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>Calmora</name>
    <message>
        <source>%@ freed</source>
        <translation>%@ を解放</translation>
    </message>
    <message numerus="yes">
        <source>%lld quit</source>
        <translation>
            <numerusform>%lld 個を終了</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%lld quit, %lld left</source>
        <translation>
            <numerusform>%lld 個を終了、残り %lld 個</numerusform>
        </translation>
    </message>
    <message>
        <source>Asks to save</source>
        <translation>保存を確認中</translation>
    </message>
    <message>
        <source>Came back by itself</source>
        <translation>自動で再起動</translation>
    </message>
    <message>
        <source>Does not answer</source>
        <translation>応答なし</translation>
    </message>
    <message>
        <source>Not allowed</source>
        <translation>権限なし</translation>
    </message>
    <message>
        <source>Quitting…</source>
        <translation>終了中…</translation>
    </message>
    <message>
        <source>Shows its window</source>
        <translation>ウィンドウを表示</translation>
    </message>
    <message>
        <source>Some stayed. Calmora can quit all at once and say in the list what stays and why.</source>
        <translation>終了しなかったアプリがあります。すべてを同時に終了し、残ったアプリとその理由を一覧に表示できます。</translation>
    </message>
    <message>
        <source>Switch on</source>
        <translation>オンにする</translation>
    </message>
    <message numerus="yes">
        <source>apps_running_count %lld</source>
        <translation>
            <numerusform>%lld個のアプリを実行中</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%lld apps · %lld protected</source>
        <translation>
            <numerusform>%lld個のアプリ · %lld個を保護中</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>auto_quit_notification %@ %lld</source>
        <translation>
            <numerusform>%@は%lld分間使用されなかったため終了しました。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>auto_quit_warning %@ %lld</source>
        <translation>
            <numerusform>%@は1分後に終了します：%lld分間使用されていません。</numerusform>
        </translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>終了しない</translation>
    </message>
    <message>
        <source>version_label %@</source>
        <translation>バージョン %@</translation>
    </message>
    <message>
        <source>About Calmora</source>
        <translation>Calmoraについて</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>アップデートを確認…</translation>
    </message>
    <message>
        <source>Quit Calmora</source>
        <translation>Calmoraを終了</translation>
    </message>
    <message>
        <source>Show/Hide Calmora</source>
        <translation>Calmoraを表示/非表示</translation>
    </message>
    <message>
        <source>Quit All</source>
        <translation>すべて終了</translation>
    </message>
    <message>
        <source>Force Quit All</source>
        <translation>すべて強制終了</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>すべて選択</translation>
    </message>
    <message numerus="yes">
        <source>Quits %lld applications</source>
        <translation>
            <numerusform>%lld個のアプリを終了します</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Quits %lld applications, %lld of them hidden by the search</source>
        <translation>
            <numerusform>%lld個のアプリを終了します（うち%lld個は検索で非表示）</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Force quits %lld applications</source>
        <translation>
            <numerusform>%lld個のアプリを強制終了します</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Force quits %lld applications, %lld of them hidden by the search</source>
        <translation>
            <numerusform>%lld個のアプリを強制終了します（うち%lld個は検索で非表示）</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Selects %lld applications</source>
        <translation>
            <numerusform>%lld個のアプリを選択します</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Selects %lld applications, %lld of them hidden by the search</source>
        <translation>
            <numerusform>%lld個のアプリを選択します（うち%lld個は検索で非表示）</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Deselects %lld applications</source>
        <translation>
            <numerusform>%lld個のアプリの選択を解除します</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Deselects %lld applications, %lld of them hidden by the search</source>
        <translation>
            <numerusform>%lld個のアプリの選択を解除します（うち%lld個は検索で非表示）</numerusform>
        </translation>
    </message>
    <message>
        <source>Running apps</source>
        <translation>実行中のアプリ</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>検索</translation>
    </message>
    <message>
        <source>Clear search</source>
        <translation>検索を消去</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>バックグラウンド</translation>
    </message>
    <message>
        <source>No apps found</source>
        <translation>アプリが見つかりません</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>終了</translation>
    </message>
    <message>
        <source>Force Quit</source>
        <translation>強制終了</translation>
    </message>
    <message>
        <source>Quit %@</source>
        <translation>%@を終了</translation>
    </message>
    <message>
        <source>Force Quit %@</source>
        <translation>%@を強制終了</translation>
    </message>
    <message>
        <source>This desktop does not tell which process has which of these windows, so none can be forced to quit.</source>
        <translation>このデスクトップでは、どのウインドウがどのプロセスのものか分からないため、強制終了できません。</translation>
    </message>
    <message>
        <source>CPU %@</source>
        <translation>CPU %@</translation>
    </message>
    <message>
        <source>Memory %@</source>
        <translation>メモリ %@</translation>
    </message>
    <message>
        <source>Protected</source>
        <translation>保護中</translation>
    </message>
    <message>
        <source>Never Quit This App</source>
        <translation>このアプリを終了しない</translation>
    </message>
    <message>
        <source>Reopen</source>
        <translation>再び開く</translation>
    </message>
    <message>
        <source>Reopen %@</source>
        <translation>%@を再び開く</translation>
    </message>
    <message numerus="yes">
        <source>Reopen %lld Applications</source>
        <translation>
            <numerusform>%lld個のアプリを再び開く</numerusform>
        </translation>
    </message>
    <message>
        <source>Quit and Reopen</source>
        <translation>終了して再び開く</translation>
    </message>
    <message>
        <source>Force Quit and Reopen</source>
        <translation>強制終了して再び開く</translation>
    </message>
    <message>
        <source>Remove Protection</source>
        <translation>保護を解除</translation>
    </message>
    <message>
        <source>Expanded</source>
        <translation>展開済み</translation>
    </message>
    <message>
        <source>Collapsed</source>
        <translation>折りたたみ済み</translation>
    </message>
    <message numerus="yes">
        <source>Do you want to force quit %lld selected apps?</source>
        <translation>
            <numerusform>選択した%lld個のアプリを強制終了しますか？</numerusform>
        </translation>
    </message>
    <message>
        <source>You will lose any unsaved changes in these apps.</source>
        <translation>これらのアプリの未保存の変更は失われます。</translation>
    </message>
    <message>
        <source>Do you want to force "%@" to quit?</source>
        <translation>「%@」を強制終了しますか？</translation>
    </message>
    <message>
        <source>You will lose any unsaved changes.</source>
        <translation>保存していない変更は失われます。</translation>
    </message>
    <message>
        <source>this app</source>
        <translation>このアプリ</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Calmora Settings</source>
        <translation>Calmoraの設定</translation>
    </message>
    <message>
        <source>General</source>
        <translation>一般</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>ショートカット</translation>
    </message>
    <message>
        <source>About</source>
        <translation>情報</translation>
    </message>
    <message>
        <source>Startup</source>
        <translation>起動</translation>
    </message>
    <message>
        <source>Open Calmora at login</source>
        <translation>ログイン時にCalmoraを開く</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>アップデート</translation>
    </message>
    <message>
        <source>Automatically check for updates</source>
        <translation>アップデートを自動的に確認</translation>
    </message>
    <message>
        <source>Sounds</source>
        <translation>サウンド</translation>
    </message>
    <message>
        <source>Play sound on quit</source>
        <translation>終了時にサウンドを再生</translation>
    </message>
    <message>
        <source>Protection</source>
        <translation>保護</translation>
    </message>
    <message>
        <source>Never quit music apps</source>
        <translation>音楽アプリを終了しない</translation>
    </message>
    <message>
        <source>Deselect apps by default</source>
        <translation>最初はアプリを選択しない</translation>
    </message>
    <message>
        <source>Never-Quit List</source>
        <translation>終了しないアプリ</translation>
    </message>
    <message>
        <source>No apps in the never-quit list. Right-click an app in the menu to protect it, or use "Add App" above.</source>
        <translation>「終了しないアプリ」は空です。メニューのアプリを右クリックして保護するか、上の「アプリを追加」を使用してください。</translation>
    </message>
    <message>
        <source>Protected Apps</source>
        <translation>保護中のアプリ</translation>
    </message>
    <message>
        <source>Add App</source>
        <translation>アプリを追加</translation>
    </message>
    <message>
        <source>Add App to Never-Quit List</source>
        <translation>「終了しないアプリ」に追加</translation>
    </message>
    <message>
        <source>Remove from never-quit list</source>
        <translation>「終了しないアプリ」から削除</translation>
    </message>
    <message>
        <source>No running apps found</source>
        <translation>実行中のアプリが見つかりません</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>追加</translation>
    </message>
    <message>
        <source>Added</source>
        <translation>追加済み</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>完了</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>不明</translation>
    </message>
    <message>
        <source>Extras</source>
        <translation>その他</translation>
    </message>
    <message>
        <source>Include Finder in app list</source>
        <translation>ファイルマネージャーをリストに含める</translation>
    </message>
    <message>
        <source>View background apps</source>
        <translation>バックグラウンドのアプリを表示</translation>
    </message>
    <message>
        <source>Group background instances</source>
        <translation>バックグラウンドのインスタンスをまとめる</translation>
    </message>
    <message>
        <source>Display</source>
        <translation>表示</translation>
    </message>
    <message>
        <source>Sort by</source>
        <translation>並べ替え</translation>
    </message>
    <message>
        <source>Name (A-Z)</source>
        <translation>名前（A–Z）</translation>
    </message>
    <message>
        <source>CPU Usage</source>
        <translation>CPU使用率</translation>
    </message>
    <message>
        <source>Memory Usage</source>
        <translation>メモリ使用量</translation>
    </message>
    <message>
        <source>Show resources</source>
        <translation>リソースの表示</translation>
    </message>
    <message>
        <source>CPU Only</source>
        <translation>CPUのみ</translation>
    </message>
    <message>
        <source>Memory Only</source>
        <translation>メモリのみ</translation>
    </message>
    <message>
        <source>Both</source>
        <translation>両方</translation>
    </message>
    <message>
        <source>None</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>Default quit mode</source>
        <translation>デフォルトの終了方法</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>通常</translation>
    </message>
    <message>
        <source>Force</source>
        <translation>強制</translation>
    </message>
    <message>
        <source>Calmora always starts with polite quitting; hold Alt in the popover to force.</source>
        <translation>Calmoraは常に通常の終了から始めます。強制終了するには、ポップオーバーでAltキーを押し続けてください。</translation>
    </message>
    <message>
        <source>Auto Quit</source>
        <translation>自動終了</translation>
    </message>
    <message>
        <source>Auto-quit inactive apps</source>
        <translation>使用していないアプリを自動的に終了</translation>
    </message>
    <message>
        <source>After</source>
        <translation>終了までの時間</translation>
    </message>
    <message>
        <source>5 minutes</source>
        <translation>5分</translation>
    </message>
    <message>
        <source>10 minutes</source>
        <translation>10分</translation>
    </message>
    <message>
        <source>15 minutes</source>
        <translation>15分</translation>
    </message>
    <message>
        <source>30 minutes</source>
        <translation>30分</translation>
    </message>
    <message>
        <source>1 hour</source>
        <translation>1時間</translation>
    </message>
    <message>
        <source>2 hours</source>
        <translation>2時間</translation>
    </message>
    <message>
        <source>4 hours</source>
        <translation>4時間</translation>
    </message>
    <message>
        <source>8 hours</source>
        <translation>8時間</translation>
    </message>
    <message>
        <source>Options and Forecast…</source>
        <translation>オプションと予定…</translation>
    </message>
    <message>
        <source>Shall auto-quit leave alone what is in use, such as an app that plays sound, and tell you a minute before it quits an app?</source>
        <translation>音を再生しているアプリなど、使用中のものは自動終了の対象から外し、終了する1分前にお知らせしますか？</translation>
    </message>
    <message>
        <source>Spare what is in use and warn first</source>
        <translation>使用中のアプリを対象から外し、事前に知らせる</translation>
    </message>
    <message>
        <source>Apps that play or record sound, keep the computer awake, are full screen, or are in front while you type are left alone. A notice says a minute before which app will be quit.</source>
        <translation>音の再生や録音をしているアプリ、コンピュータのスリープを防いでいるアプリ、全画面のアプリ、入力中に手前にあるアプリは終了しません。終了する1分前に、どのアプリかをお知らせします。</translation>
    </message>
    <message>
        <source>Quit together, show what is left, and Reopen</source>
        <translation>同時に終了し、残ったものを示し、開き直せるようにする</translation>
    </message>
    <message>
        <source>Asks all ticked apps at once, says in the list why an app has stayed, and offers to start again what was quit.</source>
        <translation>選択したすべてのアプリに同時に終了を求め、残ったアプリの理由を一覧に示し、終了したものを開き直せるようにします。</translation>
    </message>
    <message>
        <source>What auto-quit will do</source>
        <translation>自動終了の予定</translation>
    </message>
    <message>
        <source>Auto-quit is off.</source>
        <translation>自動終了はオフです。</translation>
    </message>
    <message>
        <source>Never: %@</source>
        <translation>終了しない：%@</translation>
    </message>
    <message>
        <source>Spared: %@</source>
        <translation>対象外：%@</translation>
    </message>
    <message>
        <source>last spared: %@</source>
        <translation>前回は対象外：%@</translation>
    </message>
    <message>
        <source>Not before you use it</source>
        <translation>使用するまで終了しない</translation>
    </message>
    <message>
        <source>Not while in front</source>
        <translation>手前にある間は終了しない</translation>
    </message>
    <message>
        <source>Was asked to quit and stayed</source>
        <translation>終了を求めたが残っている</translation>
    </message>
    <message numerus="yes">
        <source>In %lld min</source>
        <translation>
            <numerusform>%lld分後</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>In %lld min unless busy</source>
        <translation>
            <numerusform>%lld分後（処理中でなければ）</numerusform>
        </translation>
    </message>
    <message>
        <source>not identified</source>
        <translation>識別できない</translation>
    </message>
    <message>
        <source>activity unknown</source>
        <translation>使用状況が不明</translation>
    </message>
    <message>
        <source>the desktop leaves it no time to ask you</source>
        <translation>デスクトップが確認の時間を与えない</translation>
    </message>
    <message>
        <source>music player</source>
        <translation>音楽プレーヤー</translation>
    </message>
    <message>
        <source>file manager</source>
        <translation>ファイルマネージャー</translation>
    </message>
    <message>
        <source>protected</source>
        <translation>保護中</translation>
    </message>
    <message>
        <source>terminal</source>
        <translation>端末</translation>
    </message>
    <message>
        <source>needed in the background</source>
        <translation>バックグラウンドで必要</translation>
    </message>
    <message>
        <source>the time is too long</source>
        <translation>時間が長すぎる</translation>
    </message>
    <message>
        <source>plays sound</source>
        <translation>音を再生中</translation>
    </message>
    <message>
        <source>records sound</source>
        <translation>録音中</translation>
    </message>
    <message>
        <source>plays media</source>
        <translation>メディアを再生中</translation>
    </message>
    <message>
        <source>shares the screen</source>
        <translation>画面を共有中</translation>
    </message>
    <message>
        <source>keeps the computer awake</source>
        <translation>スリープを防いでいる</translation>
    </message>
    <message>
        <source>full screen</source>
        <translation>全画面</translation>
    </message>
    <message>
        <source>busy</source>
        <translation>処理中</translation>
    </message>
    <message>
        <source>its use cannot be checked</source>
        <translation>使用中か確認できない</translation>
    </message>
    <message>
        <source>the notice could not be shown</source>
        <translation>通知を表示できなかった</translation>
    </message>
    <message>
        <source>Changes last until you quit Calmora: %@ cannot be used.</source>
        <translation>変更はCalmoraを終了するまで有効です。%@を使用できません。</translation>
    </message>
    <message>
        <source>Reset All Settings</source>
        <translation>すべての設定をリセット</translation>
    </message>
    <message>
        <source>Global Shortcuts</source>
        <translation>グローバルショートカット</translation>
    </message>
    <message>
        <source>Show/Hide Calmora:</source>
        <translation>Calmoraを表示/非表示：</translation>
    </message>
    <message>
        <source>Quit all:</source>
        <translation>すべて終了：</translation>
    </message>
    <message>
        <source>Force quit all:</source>
        <translation>すべて強制終了：</translation>
    </message>
    <message>
        <source>Shortcuts work from any application.</source>
        <translation>ショートカットはどのアプリからでも使えます。</translation>
    </message>
    <message>
        <source>Shortcuts work from any application. Keys for accents and those of the numeric keypad cannot be used here.</source>
        <translation>ショートカットはどのアプリからでも使えます。ここでは、アクセント記号のキーとテンキーは使えません。</translation>
    </message>
    <message>
        <source>This desktop does not tell which applications run, so only X11 ones are listed.</source>
        <translation>このデスクトップでは、実行中のアプリが分からないため、X11のアプリだけが表示されます。</translation>
    </message>
    <message>
        <source>This desktop ends Wayland applications that take longer than 2 seconds to answer, so only X11 applications are quit automatically.</source>
        <translation>このデスクトップは、2秒以内に応答しないWaylandのアプリを終了させるため、自動的に終了されるのはX11のアプリだけです。</translation>
    </message>
    <message>
        <source>Calmora needs its extension for GNOME to see all apps, to ask them to quit, and to put its icon into the top bar.</source>
        <translation>すべてのアプリを表示し、終了を求め、トップバーにアイコンを表示するには、CalmoraのGNOME用拡張機能が必要です。</translation>
    </message>
    <message>
        <source>Its extension for GNOME puts Calmora’s icon into the top bar.</source>
        <translation>GNOME用拡張機能は、Calmoraのアイコンをトップバーに表示します。</translation>
    </message>
    <message>
        <source>Log out and in once so that GNOME finds Calmora’s extension.</source>
        <translation>GNOMEがCalmoraの拡張機能を見つけられるように、一度ログアウトしてログインし直してください。</translation>
    </message>
    <message>
        <source>Extensions of GNOME are switched off on this system.</source>
        <translation>このシステムではGNOMEの拡張機能がオフになっています。</translation>
    </message>
    <message>
        <source>The extension for GNOME is switched on.</source>
        <translation>GNOME用拡張機能はオンになっています。</translation>
    </message>
    <message>
        <source>Enable</source>
        <translation>有効にする</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>今はしない</translation>
    </message>
    <message>
        <source>GNOME</source>
        <translation>GNOME</translation>
    </message>
    <message>
        <source>Shortcuts wait for the GNOME extension to be switched on again.</source>
        <translation>ショートカットは、GNOME用拡張機能が再びオンになるまで使えません。</translation>
    </message>
    <message>
        <source>Without the GNOME extension, Calmora sees no Wayland windows. Some apps are missing, and some can only be force quit.</source>
        <translation>GNOME用拡張機能がないと、CalmoraはWaylandのウインドウを認識できません。表示されないアプリや、強制終了しかできないアプリがあります。</translation>
    </message>
    <message>
        <source>Key on this desktop: %@</source>
        <translation>このデスクトップでのキー: %@</translation>
    </message>
    <message>
        <source>The desktop has assigned no key.</source>
        <translation>デスクトップはキーを割り当てていません。</translation>
    </message>
    <message>
        <source>The desktop assigns the keys; what is recorded here is a proposal.</source>
        <translation>キーはデスクトップが割り当てます。ここで設定するキーは提案です。</translation>
    </message>
    <message>
        <source>Record a shortcut, copy its line into the configuration of sway, and reload that.</source>
        <translation>ショートカットを設定し、その行を sway の設定にコピーして、設定を再読み込みしてください。</translation>
    </message>
    <message>
        <source>This desktop does not let programs choose shortcuts. Bind these commands to keys in its settings or its configuration.</source>
        <translation>このデスクトップでは、プログラムがショートカットを選べません。デスクトップの設定または設定ファイルで、これらのコマンドにキーを割り当ててください。</translation>
    </message>
    <message>
        <source>Shortcuts are not available, because there is no X server.</source>
        <translation>Xサーバーがないため、ショートカットを使用できません。</translation>
    </message>
    <message>
        <source>Quits your applications. Spares your work.</source>
        <translation>アプリは終了。作業はそのまま。</translation>
    </message>
    <message>
        <source>update_available_text %@</source>
        <translation>現在のバージョンは%@です。</translation>
    </message>
    <message>
        <source>update_available_title %@</source>
        <translation>バージョン%@を利用できます。</translation>
    </message>
    <message>
        <source>update_checking</source>
        <translation>アップデートを確認中…</translation>
    </message>
    <message>
        <source>update_current_text %@</source>
        <translation>バージョン%@が最新です。</translation>
    </message>
    <message>
        <source>update_current_title</source>
        <translation>Calmoraは最新です。</translation>
    </message>
    <message>
        <source>update_error_address</source>
        <translation>このバージョンに組み込まれたアドレスはアップデートに使用できません。</translation>
    </message>
    <message>
        <source>update_error_insecure</source>
        <translation>サーバーへの接続が安全でないため、何も読み込みませんでした。</translation>
    </message>
    <message>
        <source>update_error_loader</source>
        <translation>ネットワークに接続するためのCalmoraの部品が見つかりません。Calmoraを再インストールしてみてください。</translation>
    </message>
    <message>
        <source>update_error_redirect</source>
        <translation>サーバーが信頼できないアドレスに転送しました。</translation>
    </message>
    <message>
        <source>update_error_refused</source>
        <translation>サーバーからリリースの一覧を取得できませんでした。</translation>
    </message>
    <message>
        <source>update_error_timeout</source>
        <translation>サーバーからの応答に時間がかかりすぎました。しばらくしてからもう一度お試しください。</translation>
    </message>
    <message>
        <source>update_error_too_large</source>
        <translation>リリースの一覧が大きすぎます。</translation>
    </message>
    <message>
        <source>update_error_unreachable</source>
        <translation>サーバーに接続できません。ネットワーク接続を確認して、もう一度お試しください。</translation>
    </message>
    <message>
        <source>update_error_unreadable</source>
        <translation>リリースの一覧が壊れているか、不正な内容が含まれています。</translation>
    </message>
    <message>
        <source>update_error_version</source>
        <translation>リリースの一覧に無効なバージョンが含まれています。</translation>
    </message>
    <message>
        <source>update_failed_title</source>
        <translation>アップデートを確認できませんでした。</translation>
    </message>
    <message>
        <source>update_notification_text</source>
        <translation>新機能については、Calmoraのメニューから「アップデートを確認…」を選択してください。</translation>
    </message>
    <message>
        <source>update_open_page</source>
        <translation>Webページを開く</translation>
    </message>
    <message>
        <source>update_packaged</source>
        <translation>アップデートはシステムのパッケージとして提供されます。</translation>
    </message>
    <message>
        <source>File</source>
        <translation>ファイル</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>編集</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>元に戻す</translation>
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
        <translation>ウインドウ</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>最小化</translation>
    </message>
    <message>
        <source>record_shortcut</source>
        <translation>キーを設定</translation>
    </message>
    <message>
        <source>press_shortcut</source>
        <translation>キーを押す</translation>
    </message>
    <message>
        <source>clear_shortcut</source>
        <translation>ショートカットを消去</translation>
    </message>
    <message>
        <source>keyboard_shortcut_used_by_menu_item</source>
        <translation>このキーボードショートカットはメニュー項目「%@」で使用されているため、設定できません。</translation>
    </message>
    <message>
        <source>keyboard_shortcut_used_by_system</source>
        <translation>このキーボードショートカットはすでにデスクトップで使用されています。</translation>
    </message>
    <message>
        <source>keyboard_shortcuts_can_be_changed</source>
        <translation>デスクトップのショートカットの多くは、キーボードの設定で変更できます。</translation>
    </message>
    <message>
        <source>ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>force_use_shortcut</source>
        <translation>それでも使用</translation>
    </message>
    <message>
        <source>space_key</source>
        <translation>スペース</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>Ctrl</translation>
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
        <source>Fn</source>
        <translation>Fn</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Enter</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>メニュー</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Backspace</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Delete</translation>
    </message>
    <message>
        <source>End</source>
        <translation>End</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>Insert</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Home</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>スペース</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tab</translation>
    </message>
    <message>
        <source>Page Up</source>
        <translation>Page Up</translation>
    </message>
    <message>
        <source>Page Down</source>
        <translation>Page Down</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>上矢印</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>右矢印</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>下矢印</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>左矢印</translation>
    </message>
    <message>
        <source>Num Lock</source>
        <translation>Num Lock</translation>
    </message>
    <message>
        <source>Keypad Enter</source>
        <translation>テンキー Enter</translation>
    </message>
    <message>
        <source>Keypad 0</source>
        <translation>テンキー 0</translation>
    </message>
    <message>
        <source>Keypad 1</source>
        <translation>テンキー 1</translation>
    </message>
    <message>
        <source>Keypad 2</source>
        <translation>テンキー 2</translation>
    </message>
    <message>
        <source>Keypad 3</source>
        <translation>テンキー 3</translation>
    </message>
    <message>
        <source>Keypad 4</source>
        <translation>テンキー 4</translation>
    </message>
    <message>
        <source>Keypad 5</source>
        <translation>テンキー 5</translation>
    </message>
    <message>
        <source>Keypad 6</source>
        <translation>テンキー 6</translation>
    </message>
    <message>
        <source>Keypad 7</source>
        <translation>テンキー 7</translation>
    </message>
    <message>
        <source>Keypad 8</source>
        <translation>テンキー 8</translation>
    </message>
    <message>
        <source>Keypad 9</source>
        <translation>テンキー 9</translation>
    </message>
    <message>
        <source>Keypad .</source>
        <translation>テンキー .</translation>
    </message>
    <message>
        <source>Keypad /</source>
        <translation>テンキー /</translation>
    </message>
    <message>
        <source>Keypad =</source>
        <translation>テンキー =</translation>
    </message>
    <message>
        <source>Keypad -</source>
        <translation>テンキー -</translation>
    </message>
    <message>
        <source>Keypad *</source>
        <translation>テンキー *</translation>
    </message>
    <message>
        <source>Keypad +</source>
        <translation>テンキー +</translation>
    </message>
</context>
</TS>
