// Runs in KWin: tells the helper which window is in front. KWin 5 calls windows clients.

function tell(window) {
    if (window)
        callDBus("com.kyvar.KyvarQuorviHelper", "/com/kyvar/Front", "com.kyvar.FrontReport1", "Window",
            "" + window.desktopFileName, "" + window.resourceClass, "" + window.resourceName, window.pid);
}

(workspace.windowActivated || workspace.clientActivated).connect(tell);
tell(workspace.activeWindow || workspace.activeClient);
