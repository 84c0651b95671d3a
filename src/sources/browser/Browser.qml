// A web page and what it may do: play, fill the window, and open links elsewhere.
import QtQuick
import QtWebEngine
import ZephPlayer.Sources.Browser

YouTubeHostingView {
    id: browser

    onUserScriptWanted: script => page.userScripts.collection = [
        {
            name: "zeph",
            sourceCode: script,
            injectionPoint: WebEngineScript.DocumentReady,
            worldId: WebEngineScript.ApplicationWorld
        }
    ]
    onHtmlWanted: (html, baseUrl) => page.loadHtml(html, baseUrl)
    onUrlWanted: url => page.url = url
    onStopWanted: page.stop()
    onScriptWanted: script => page.runJavaScript(script)
    onLeaveFullScreenWanted: page.fullScreenCancelled()

    WebEngineView {
        id: page

        anchors.fill: parent
        profile: browser.profile
        backgroundColor: "black"

        settings.playbackRequiresUserGesture: false
        settings.fullScreenSupportEnabled: true
        settings.errorPageEnabled: false
        settings.focusOnNavigationEnabled: false
        settings.javascriptCanOpenWindows: false
        settings.javascriptCanAccessClipboard: false
        settings.javascriptCanPaste: false
        settings.allowWindowActivationFromJavaScript: false
        settings.allowRunningInsecureContent: false
        settings.allowGeolocationOnInsecureOrigins: false
        settings.localContentCanAccessFileUrls: false
        settings.localContentCanAccessRemoteUrls: false
        settings.navigateOnDropEnabled: false
        settings.screenCaptureEnabled: false
        settings.pluginsEnabled: false
        settings.pdfViewerEnabled: false
        settings.hyperlinkAuditingEnabled: false
        settings.webRTCPublicInterfacesOnly: true
        settings.unknownUrlSchemePolicy: WebEngineSettings.DisallowUnknownUrlSchemes

        onLoadingChanged: info => {
            if (info.status === WebEngineView.LoadSucceededStatus)
                browser.pageLoaded();
            else if (info.status === WebEngineView.LoadFailedStatus)
                browser.pageFailed();
        }
        onJavaScriptConsoleMessage: (level, message, lineNumber, sourceID) => browser.pageSaid(message)
        onRenderProcessTerminated: (status, exitCode) => {
            if (status !== WebEngineView.NormalTerminationStatus)
                browser.rendererTerminated();
        }
        onFullScreenRequested: request => {
            request.accept();
            browser.fullScreenRequested(request.toggleOn);
        }
        onNewWindowRequested: request => {
            if (request.userInitiated)
                browser.openOutside(request.requestedUrl);
        }

        onFeaturePermissionRequested: (origin, feature) => grantFeaturePermission(origin, feature, false)
        onCertificateError: error => error.rejectCertificate()
        onSelectClientCertificate: selection => selection.selectNone()
        onRegisterProtocolHandlerRequested: request => request.reject()
        onFileSystemAccessRequested: request => request.reject()

        // What is accepted here is not shown by the browser itself.
        onContextMenuRequested: request => request.accepted = true
        onTooltipRequested: request => request.accepted = true
        onTouchSelectionMenuRequested: request => request.accepted = true
        onJavaScriptDialogRequested: request => {
            request.accepted = true;
            request.dialogReject();
        }
        onAuthenticationDialogRequested: request => {
            request.accepted = true;
            request.dialogReject();
        }
        onFileDialogRequested: request => {
            request.accepted = true;
            request.dialogReject();
        }
        onColorDialogRequested: request => {
            request.accepted = true;
            request.dialogReject();
        }
    }
}
