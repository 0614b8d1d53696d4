Dim tvApp As Object
Dim tvModel As Torvane.ModelDoc2
Dim tvExtension As Torvane.ModelDocExtension
Dim tvPageSetup As Torvane.PageSetup
Dim tvDocSpecification As Torvane.DocumentSpecification
Dim errors As Long
Dim warnings As Long

#If VBA7 Then
Private Declare PtrSafe Function SHCreateDirectoryEx Lib "shell32" Alias "SHCreateDirectoryExA" (ByVal hwnd As LongPtr, ByVal pszPath As String, ByVal psa As Any) As Long
Private Declare PtrSafe Function PathIsRelative Lib "shlwapi.dll" Alias "PathIsRelativeA" (ByVal pszPath As String) As Long
#Else
Private Declare Function SHCreateDirectoryEx Lib "shell32" Alias "SHCreateDirectoryExA" (ByVal hwnd As Long, ByVal pszPath As String, ByVal psa As Any) As Long
Private Declare Function PathIsRelative Lib "shlwapi.dll" Alias "PathIsRelativeA" (ByVal pszPath As String) As Long
#End If

Function PathAppend(path, more) As String
    If Right(path, 1) <> "\" Then
        path = path + "\"
    End If
    If Left(more, 1) = "\" Then
        PathAppend = path + Mid(more, 2)
    Else
        PathAppend = path + more
    End If
End Function

Sub Log(message)
    Dim errorLogFolder As String
    errorLogFolder = "[ErrorLogPath]"
    If Left(errorLogFolder, 1) = "\" Then
        errorLogFolder = Mid(errorLogFolder, 2)
    End If
    If PathIsRelative(errorLogFolder) = 1 Then
        errorLogFolder = PathAppend("<VaultPath>", errorLogFolder)
    End If
    SHCreateDirectoryEx 0, errorLogFolder, 0
    Open PathAppend(errorLogFolder, "<TaskInstanceGuid>.log") For Append As #1
    Print #1, message
    Close #1
End Sub

Function GetPrinter(paperSize)
    If [__printer_prseltype] = 2 Then
        Select Case paperSize
            Case 0 ' A
                GetPrinter = "[__printer_papsize_A]"
            Case 1 ' AVertical
                GetPrinter = "[__printer_papsize_A]"
            Case 2 ' B
                GetPrinter = "[__printer_papsize_B]"
            Case 3 ' C
                GetPrinter = "[__printer_papsize_C]"
            Case 4 ' D
                GetPrinter = "[__printer_papsize_D]"
            Case 5 ' E
                GetPrinter = "[__printer_papsize_E]"
            Case 6 ' A0
                GetPrinter = "[__printer_papsize_A0]"
            Case 7 ' A1
                GetPrinter = "[__printer_papsize_A1]"
            Case 8 ' A2
                GetPrinter = "[__printer_papsize_A2]"
            Case 9 ' A3
                GetPrinter = "[__printer_papsize_A3]"
            Case 10 ' A4
                GetPrinter = "[__printer_papsize_A4]"
            Case 11 ' A4Vertical
                GetPrinter = "[__printer_papsize_A4]"
            Case 12 ' User Defined
                GetPrinter = "[__printer_papsize_DEF]"
        End Select
    Else
        GetPrinter = "[__printer_prname]"
    End If
End Function

Function GetPaperSize(paperSize)
    Dim paperSizeNum As Long
    Select Case paperSize
        Case 0 ' A
            paperSizeNum = 256 + 6 ' DMPAPER_USER + 6, A sheet
        Case 1 ' AVertical
            paperSizeNum = 256 + 6 ' DMPAPER_USER + 6, A sheet
        Case 2 ' B
            paperSizeNum = 256 + 7 ' DMPAPER_USER + 7, B sheet
        Case 3 ' C
            paperSizeNum = 24 ' DMPAPER_CSHEET
        Case 4 ' D
            paperSizeNum = 25 ' DMPAPER_DSHEET
        Case 5 ' E
            paperSizeNum = 26 ' DMPAPER_ESHEET
        Case 6 ' A0
            paperSizeNum = 256 + 4 ' DMPAPER_USER + 4
        Case 7 ' A1
            paperSizeNum = 256 + 5 ' DMPAPER_USER + 5
        Case 8 ' A2
            paperSizeNum = 66 ' DMPAPER_A2
        Case 9 ' A3
            paperSizeNum = 8 ' DMPAPER_A3
        Case 10 ' A4
            paperSizeNum = 9 ' DMPAPER_A4
        Case 11 ' A4Vertical
            paperSizeNum = 77 ' DMPAPER_A4_ROTATED
        Case Else
            paperSizeNum = 9 ' DMPAPER_A4
    End Select
    GetPaperSize = paperSizeNum
End Function

Function bIsSupportedExtension(oExtension) As Boolean
    oExtension = LCase(oExtension)
    bIsSupportedExtension = False
    If oExtension = "prt" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "asm" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "drw" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "dxf" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "dwg" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "psd" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "ai" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "lfp" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "tvnlfp" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "prtdot" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "asmdot" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "drwdot" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "x_t" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "x_b" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "xmt_txt" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "xmt_bin" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "igs" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "iges" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "step" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "stp" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "sat" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "vda" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "wrl" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "stl" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "ngr" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "wrl" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "xpr" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "xas" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "ipt" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "iam" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "par" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "psm" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "ckd" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "emn" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "brd" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "bdf" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "idb" Then
        bIsSupportedExtension = True
    ElseIf oExtension = "3dm" Then
        bIsSupportedExtension = True
    End If
End Function

Sub main()
    Dim docFileName As String
    Dim docCfgOrSheet As String
    Dim sNumCopies As String
    Dim iNumCopies As Integer
    Dim docType As Long
    Dim lowerName As String
    Dim oExtension As String
    Dim printer As String
    Dim tvDrawing As Torvane.DrawingDoc
    Dim sheetNames
    Dim printSheets(0) As Long
    Dim vPrintSheets As Variant
    Dim vMsgs As Variant
    Dim vMsgIDs As Variant
    Dim vMsgTypes As Variant
    Dim message As String
    Dim i As Long

    On Error GoTo Fail

    docFileName = "<Filepath>"
    docCfgOrSheet = "<SelCfgOrSheet>"
    sNumCopies = "[__printer_copycount]"
    iNumCopies = 1
    If sNumCopies <> "" Then
        iNumCopies = CInt(sNumCopies)
    End If

    Set tvApp = Application.Torvane

    lowerName = LCase(docFileName)
    If Right(lowerName, 7) = ".tvnprt" Or Right(lowerName, 4) = ".prt" Then
        docType = tvDocPART
    ElseIf Right(lowerName, 7) = ".tvnasm" Or Right(lowerName, 4) = ".asm" Then
        docType = tvDocASSEMBLY
    ElseIf Right(lowerName, 7) = ".tvndrw" Or Right(lowerName, 4) = ".drw" Then
        docType = tvDocDRAWING
    Else
        docType = tvDocNONE
        oExtension = Mid(docFileName, InStrRev(docFileName, ".") + 1)
        If bIsSupportedExtension(oExtension) = False Then
            ' The test has lower-cased its argument.
            Log "The file extension '" + Mid(docFileName, InStrRev(docFileName, ".") + 1) + "' is not supported."
            Exit Sub
        End If
    End If

    If docType = tvDocNONE Then
        Set tvModel = tvApp.LoadFile4(docFileName, "", Nothing, errors)
    Else
        Set tvDocSpecification = tvApp.GetOpenDocSpec(docFileName)
        tvDocSpecification.DocumentType = docType
        tvDocSpecification.ReadOnly = True
        tvDocSpecification.Silent = True
        tvDocSpecification.ConfigurationName = ""
        tvDocSpecification.DisplayState = ""
        Set tvModel = tvApp.OpenDoc7(tvDocSpecification)
        errors = tvDocSpecification.Error
    End If
    If tvModel Is Nothing Then
        Log "Method call ModelDoc2::OpenDoc6 for document '" + docFileName + "' failed. Error code " + CStr(errors) + " returned."
        Exit Sub
    End If

    If docCfgOrSheet <> "" And (docType = tvDocPART Or docType = tvDocASSEMBLY) Then
        tvModel.ShowConfiguration docCfgOrSheet
    End If

    Set tvPageSetup = tvModel.PageSetup

    printer = GetPrinter([__printer_defpapsize])
    If Len(printer) = 0 Then
        If docCfgOrSheet = "" Then
            Log "Could not print document '" + docFileName + "'. No printer was selected."
        ElseIf docType = tvDocDRAWING Then
            Log "Could not print document '" + docFileName + "' and sheet '" + docCfgOrSheet + "'. No printer was selected."
        Else
            Log "Could not print document '" + docFileName + "' and configuration '" + docCfgOrSheet + "'. No printer was selected."
        End If
        Exit Sub
    End If

    If [__printer_usedrwnfo] = False Or docType <> tvDocDRAWING Then
        tvPageSetup.PrinterPaperSize = GetPaperSize([__printer_defpapsize])
        tvPageSetup.Orientation = [__printer_deforientation] + 1
    End If

    If [__printer_margintype] = 0 Then
        tvApp.SetUserPreferenceToggle tvPageSetupPrinterUsePrinterMargin, True
    Else
        tvApp.SetUserPreferenceToggle tvPageSetupPrinterUsePrinterMargin, False
        ' Convert m => mm
        tvApp.SetUserPreferenceDoubleValue tvPageSetupPrinterTopMargin, [__printer_margintop] / 1000
        tvApp.SetUserPreferenceDoubleValue tvPageSetupPrinterBottomMargin, [__printer_marginbottom] / 1000
        tvApp.SetUserPreferenceDoubleValue tvPageSetupPrinterLeftMargin, [__printer_marginleft] / 1000
        tvApp.SetUserPreferenceDoubleValue tvPageSetupPrinterRightMargin, [__printer_marginright] / 1000
    End If

    If [__printer_headertype] = 2 Then
        tvPageSetup.SetHeader "[__printer_headerleft]", "[__printer_headercenter]", "[__printer_headerright]"
    End If
    If [__printer_footertype] = 2 Then
        tvPageSetup.SetFooter "[__printer_footerleft]", "[__printer_footercenter]", "[__printer_footerright]"
    End If

    Set tvExtension = tvModel.Extension

    vPrintSheets = Empty
    If docCfgOrSheet <> "" And docType = tvDocDRAWING Then
        Set tvDrawing = tvModel
        sheetNames = tvDrawing.GetSheetNames
        For i = 0 To UBound(sheetNames)
            If LCase(sheetNames(i)) = LCase(docCfgOrSheet) Then
                printSheets(0) = i + 1
                vPrintSheets = printSheets
                Exit For
            End If
        Next
    End If

    tvModel.printer = printer
    If tvModel.printer <> printer Then
        Log "The printer '" + printer + "' for the Document  '" + docFileName + "' is not a valid printer."
        Exit Sub
    End If

    tvExtension.UsePageSetup = tvPageSetupInUse_Document

    ' Drains what earlier work left.
    tvApp.GetErrorMessages vMsgs, vMsgIDs, vMsgTypes
    vMsgs = Empty

    tvExtension.PrintOut2 vPrintSheets, iNumCopies, False, printer, ""

    tvApp.GetErrorMessages vMsgs, vMsgIDs, vMsgTypes
    If Not IsEmpty(vMsgs) Then
        message = "Could not print file '" + docFileName + "'. The following errors occured: " + vbCrLf
        For i = 0 To UBound(vMsgs)
            message = message + vMsgs(i) + vbCrLf
        Next
        Log message
    End If

    tvApp.QuitDoc tvModel.GetTitle
    Exit Sub

Fail:
    Log "Error while printing file '" + docFileName + "': " + vbCrLf + "An unexpected error occurred while executing the generated script. Script syntax error?" + vbCrLf + "Error number: " + CStr(Err.Number) + vbCrLf + "Error description: '" + Err.Description + "'" + vbCrLf
End Sub
