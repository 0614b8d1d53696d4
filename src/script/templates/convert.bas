Dim tvApp As Object
Dim tvModel As Torvane.ModelDoc2
Dim tvDrawing As Torvane.DrawingDoc
Dim tvAssembly As Torvane.AssemblyDoc
Dim tvExtension As Torvane.ModelDocExtension
Dim tvConfMgr As Torvane.ConfigurationManager
Dim tvPDFExport As Torvane.ExportPdfData
Dim tvDocSpecification As Torvane.DocumentSpecification
Dim FileSystemObj As Object
Dim errors As Long
Dim warnings As Long

#If VBA7 Then
Private Declare PtrSafe Function SHCreateDirectoryEx Lib "shell32" Alias "SHCreateDirectoryExA" (ByVal hwnd As LongPtr, ByVal pszPath As String, ByVal psa As Any) As Long
Private Declare PtrSafe Function PathIsRelative Lib "shlwapi.dll" Alias "PathIsRelativeA" (ByVal pszPath As String) As Long
#Else
Private Declare Function SHCreateDirectoryEx Lib "shell32" Alias "SHCreateDirectoryExA" (ByVal hwnd As Long, ByVal pszPath As String, ByVal psa As Any) As Long
Private Declare Function PathIsRelative Lib "shlwapi.dll" Alias "PathIsRelativeA" (ByVal pszPath As String) As Long
#End If

Function PathAppend(path, more)
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
    Dim folder As String
    Dim logPath As String
    folder = "[ErrorLogPath]"
    If Left(folder, 1) = "\" Then
        folder = Mid(folder, 2)
    End If
    If PathIsRelative(folder) = 1 Then
        logPath = PathAppend("<VaultPath>", folder)
    Else
        logPath = folder
    End If
    SHCreateDirectoryEx 0, logPath, 0
    Open PathAppend(logPath, "<TaskInstanceGuid>.log") For Append As #1
    Print #1, message
    Close #1
End Sub

Sub CreatePath(path)
    If SHCreateDirectoryEx(0, path, 0) = 0 Then
        Open path + "~$holder" For Append As #1
        Close #1
    End If
End Sub

Sub KillHolder(path)
    On Error GoTo Ignore
    If FileSystemObj.FileExists(path + "~$holder") Then
        Kill path + "~$holder"
    End If
Ignore:
End Sub

Function GetExtension(docType, fileFormat)
    Dim first As Long
    Dim last As Long
    Dim parts
    Dim ext As String
    first = InStr(fileFormat, "(")
    last = InStr(first, fileFormat, ")")
    ext = Mid(fileFormat, first + 1, last - first - 1)
    If InStr(ext, ";") > 0 Then
        parts = Split(ext, ";")
        If UBound(parts) >= docType - 1 Then
            ext = parts(docType - 1)
        Else
            ext = "*."
        End If
    End If
    GetExtension = Mid(Trim(ext), 2)
End Function

Sub SetConversionOptions(ext)
    If LCase(ext) = ".pdf" Then
        tvApp.SetUserPreferenceToggle tvPDFExportInColor, [PdfInColor]
        tvApp.SetUserPreferenceToggle tvPDFExportEmbedFonts, [PdfEmbedFonts]
        tvApp.SetUserPreferenceToggle tvPDFExportHighQuality, [PdfHighQuality]
        tvApp.SetUserPreferenceToggle tvPDFExportPrintHeaderFooter, [PdfPrintHeaderFooter]
        tvApp.SetUserPreferenceToggle tvPDFExportUseCurrentPrintLineWeights, [PdfUsePrinterLineWeights]
    ElseIf LCase(ext) = ".igs" Then
        tvApp.SetUserPreferenceToggle tvIGESExportSolidAndSurface, [IgesExportSolidSurface]
        tvApp.SetUserPreferenceIntegerValue tvIGESRepresentation, [IgesRepresentation]
        tvApp.SetUserPreferenceToggle tvIGESExportAsWireframe, [IgesExportWireframe]
        tvApp.SetUserPreferenceIntegerValue tvIGESCurveRepresentation, [IgesCurveRepresentation]
        tvApp.SetUserPreferenceIntegerValue tvIGESSystem, [IgesSystem]
        tvApp.SetUserPreferenceToggle tvIGESExportFreeCurves, [IgesExportFreeCurves]
        tvApp.SetUserPreferenceToggle tvIGESExportSketchEntities, [IgesExportSketchEntities]
        tvApp.SetUserPreferenceToggle tvIGESHighTrimCurveAccuracy, [IgesHighCurveAccuracy]
        tvApp.SetUserPreferenceToggle tvIGESComponentsIntoOneFile, [IgesComponentsIntoOneFile]
        tvApp.SetUserPreferenceToggle tvIGESFlattenAssemHierarchy, [IgesFlattenAssemblyHierarchy]
    ElseIf LCase(ext) = ".sat" Then
        tvApp.SetUserPreferenceIntegerValue tvAcisOutputGeometryPreference, [AcisGeometry]
        tvApp.SetUserPreferenceIntegerValue tvOutputVersion, [AcisVersion]
        tvApp.SetUserPreferenceIntegerValue tvAcisOutputUnits, [AcisOutputAsUnit]
    ElseIf LCase(ext) = ".step" Then
        tvApp.SetUserPreferenceIntegerValue tvAcisOutputGeometryPreference, [StepGeometry]
        tvApp.SetUserPreferenceIntegerValue tvStepAP, [StepVersion]
    ElseIf LCase(ext) = ".x_t" Or LCase(ext) = ".x_b" Then
        tvApp.SetUserPreferenceIntegerValue tvParasolidOutputVersion, [ParasolidVersion]
        tvApp.SetUserPreferenceToggle tvXTAssemSaveFormat, [ParasolidFlattenHierarchy]
    ElseIf LCase(ext) = ".wrl" Then
        tvApp.SetUserPreferenceIntegerValue tvExportVrmlUnits, [VrmlOutputAsUnit]
        tvApp.SetUserPreferenceToggle tvExportVrmlAllComponentsInSingleFile, [VrmlSaveAssemblyAsOneFile]
    ElseIf LCase(ext) = ".stl" Then
        tvApp.SetUserPreferenceToggle tvSTLBinaryFormat, [StlOutputAs]
        tvApp.SetUserPreferenceIntegerValue tvExportStlUnits, [StlOutputAsUnit]
        tvApp.SetUserPreferenceIntegerValue tvSTLQuality, [StlQuality]
        tvApp.SetUserPreferenceToggle tvSTLDontTranslateToPositive, [StlDontTranslatePositive]
        tvApp.SetUserPreferenceToggle tvSTLComponentsIntoOneFile, [StlComponentsIntoOneFile]
        tvApp.SetUserPreferenceToggle tvSTLCheckForInterference, [StlCheckForInterferences]
    ElseIf LCase(ext) = ".tif" Or LCase(ext) = ".psd" Then
        tvApp.SetUserPreferenceIntegerValue tvTiffImageType, [TifImageType]
        tvApp.SetUserPreferenceIntegerValue tvTiffCompressionScheme, [TifCompressionScheme]
    ElseIf LCase(ext) = ".zprt" Or LCase(ext) = ".zasm" Or LCase(ext) = ".zdrw" Then
        tvApp.SetUserPreferenceToggle tvZephrinOkayToMeasure, [ZphrOkayToMeasure]
        tvApp.SetUserPreferenceToggle tvZephrinExportSTLOkay, [ZphrAllowExportOfSTL]
        tvApp.SetUserPreferenceToggle tvZephrinSaveShadedDataInDrawings, [ZphrSaveShadedData]
        tvApp.SetUserPreferenceToggle tvZephrinSaveBOM, [ZphrSaveBOM]
        tvApp.SetUserPreferenceToggle tvZephrinSaveAnimationOkay, [ZphrSaveMotionStudies]
        tvApp.SetUserPreferenceToggle tvZephrinSaveAnimationToAllConfigs, [ZphrSaveMotionStudiesToAllConfs]
        tvApp.SetUserPreferenceToggle tvZephrinSaveAnimationRecalculate, [ZphrRecalcMotionStudies]
    End If
End Sub

Function GetFullFileName(convFileName, conf, i, itemCount)
    Dim fullName As String
    Dim item As String
    Dim dot As Long
    ' A configuration name may hold slashes, and the save would then fail for a missing folder.
    item = Replace(conf, "\", "")
    item = Replace(item, "/", "")
    fullName = Replace(convFileName, "<Configuration>", item)
    If fullName = convFileName And itemCount > 0 Then
        dot = InStrRev(fullName, ".")
        fullName = Left(fullName, dot - 1) + "_" + CStr(i) + Mid(fullName, dot)
    End If
    fullName = Replace(fullName, "<", "")
    fullName = Replace(fullName, ">", "")
    fullName = Left(fullName, 2) + Replace(Mid(fullName, 3), ":", "")
    fullName = Replace(fullName, "*", "")
    fullName = Replace(fullName, "?", "")
    fullName = Replace(fullName, """", "")
    fullName = Replace(fullName, "|", "")
    GetFullFileName = fullName
End Function

Sub Convert(docFileName)
    Const tverr_InvalidFileExtension = 256
    Const tverr_SaveAsNotSupported = 4096
    Const tvwarn_MissingOLEObjects = 512

    Dim docType As Long
    Dim lowerName As String
    Dim oExtension As String
    Dim modelPath As String
    Dim modelFileName As String
    Dim modelExtension As String
    Dim convFileName As String
    Dim convFileName2 As String
    Dim convFileNameTemp As String
    Dim convFileNameTemp2 As String
    Dim convFilePath As String
    Dim convFilePath2 As String
    Dim ext As String
    Dim outputNumber As Long
    Dim fileNumber As Long
    Dim secondOutput As Boolean
    Dim Success As Boolean
    Dim removed As Long
    Dim i As Long
    Dim names
    Dim sheetName
    Dim components
    Dim component

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
            Log "The file extension '" + oExtension + "' is not supported."
            Exit Sub
        End If
    End If

    If docType = tvDocNONE Then
        Set tvModel = tvApp.LoadFile4(docFileName, "", Nothing, errors)
        docType = tvModel.GetType
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

    If errors = tvFutureVersion Then
        Log "Document '" + docFileName + "' is future version."
        Exit Sub
    End If
    If tvModel Is Nothing Then
        Log "Method call ModelDoc2::OpenDoc7 for document '" + docFileName + "' failed. Error code " + CStr(errors) + " returned."
        Exit Sub
    End If

    If Val(Left(tvApp.RevisionNumber, 2)) >= 18 Then
        tvApp.Frame.KeepInVisible = True
    End If
    tvApp.ActivateDoc2 docFileName, True, errors

    modelPath = tvModel.GetPathName()
    If modelPath = "" Then
        modelPath = docFileName
    End If
    modelFileName = Mid(modelPath, InStrRev(modelPath, "\") + 1)
    modelFileName = Left(modelFileName, InStrRev(modelFileName, ".") - 1)
    modelExtension = Mid(modelPath, InStrRev(modelPath, ".") + 1)

    convFileName = "[OutputPath]"
    convFileName2 = "[OutputPath2]"
    secondOutput = convFileName2 <> ""

    ext = GetExtension(docType, "[FileFormat]")

    convFileName = Replace(convFileName, "<Filename>", modelFileName)
    convFileName = Replace(convFileName, "<Extension>", modelExtension)
    convFilePath = Left(convFileName, InStrRev(convFileName, "\"))
    CreatePath convFilePath
    convFileName = convFileName + ext
    If secondOutput Then
        convFileName2 = Replace(convFileName2, "<Filename>", modelFileName)
        convFileName2 = Replace(convFileName2, "<Extension>", modelExtension)
        convFilePath2 = Left(convFileName2, InStrRev(convFileName2, "\"))
        CreatePath convFilePath2
        convFileName2 = convFileName2 + ext
    End If

    SetConversionOptions ext
    Set tvExtension = tvModel.Extension

    If docType = tvDocDRAWING Then
        Set tvDrawing = tvModel
        outputNumber = [OutputSheets]
        fileNumber = [FileSheets]
        If outputNumber And 2 Then
            names = tvDrawing.GetSheetNames
        ElseIf outputNumber And 4 Then
            ReDim names(0)
            names(0) = tvDrawing.GetCurrentSheet.GetName()
        ElseIf outputNumber And 8 Then
            names = tvDrawing.GetSheetNames
            removed = 0
            For i = 0 To UBound(names)
                If names(i) Like "[NamedSheet]" Then
                    names(i - removed) = names(i)
                Else
                    removed = removed + 1
                EndIf
            Next
            If removed > UBound(names) Then
                names = Empty
            ElseIf removed > 0 Then
                ReDim Preserve names(UBound(names) - removed)
            End If
        End If

        If IsEmpty(names) Then
            Log "Document '" + docFileName + "' didn't contain any sheets named '[NamedSheet]'."
        ElseIf fileNumber And 4 Then
            For i = 0 To UBound(names)
                tvDrawing.ActivateSheet names(i)
                convFileNameTemp = GetFullFileName(convFileName, names(i), i, UBound(names))
                If LCase(ext) = ".pdf" Then
                    Set tvPDFExport = tvApp.GetExportFileData(1)
                    sheetName = names(i)
                    tvPDFExport.SetSheets tvExportData_ExportSpecifiedSheets, sheetName
                ElseIf LCase(ext) = ".zdrw" Then
                    tvApp.SetUserPreferenceIntegerValue tvZephrinSaveAsSelectionOption, tvZephrinSaveActive
                End If
                Success = tvExtension.SaveAs(convFileNameTemp, tvSaveAsCurrentVersion, tvSaveAsOptions_Silent, tvPDFExport, errors, warnings)
                If Success = False Then
                    If errors = tverr_InvalidFileExtension Then
                        Log "The file '" + docFileName + "' and sheet '" + names(i) + "' can't be converted to the file extension '" + ext + "'."
                    Else
                        Log "Method call ModelDocExtension::SaveAs for document '" + convFileNameTemp + "' and sheet '" + names(i) + "' failed. Error code " + CStr(errors) + " returned."
                        If (errors And tverr_SaveAsNotSupported) <> 0 And (warnings And tvwarn_MissingOLEObjects) <> 0 Then
                            Log "This document contains OLE objects. Such objects can't be converted outside of Torvane. Please open the document and perform the conversion from Torvane."
                        End If
                    End If
                End If
                If secondOutput Then
                    convFileNameTemp2 = GetFullFileName(convFileName2, names(i), i, UBound(names))
                    Success = tvExtension.SaveAs(convFileNameTemp2, tvSaveAsCurrentVersion, tvSaveAsOptions_Silent, tvPDFExport, errors, warnings)
                    If Success = False Then
                        If errors = tverr_InvalidFileExtension Then
                            Log "The file '" + docFileName + "' and sheet '" + names(i) + "' can't be converted to the file extension '" + ext + "'."
                        Else
                            Log "Method call ModelDocExtension::SaveAs for document '" + convFileNameTemp2 + "' and sheet '" + names(i) + "' failed. Error code " + CStr(errors) + " returned."
                            If (errors And tverr_SaveAsNotSupported) <> 0 And (warnings And tvwarn_MissingOLEObjects) <> 0 Then
                                Log "This document contains OLE objects. Such objects can't be converted outside of Torvane. Please open the document and perform the conversion from Torvane."
                            End If
                        End If
                    End If
                End If
            Next
        ElseIf fileNumber And 2 Then
            If LCase(ext) = ".pdf" Then
                Set tvPDFExport = tvApp.GetExportFileData(tvExportPdfData)
                tvPDFExport.SetSheets tvExportData_ExportSpecifiedSheets, names
            ElseIf LCase(ext) = ".zdrw" Then
                If outputNumber And 2 Then
                    tvApp.SetUserPreferenceIntegerValue tvZephrinSaveAsSelectionOption, tvZephrinSaveAll
                ElseIf outputNumber And 4 Then
                    tvApp.SetUserPreferenceIntegerValue tvZephrinSaveAsSelectionOption, tvZephrinSaveActive
                ElseIf outputNumber And 8 Then
                    tvApp.SetUserPreferenceIntegerValue tvZephrinSaveAsSelectionOption, tvZephrinSaveSelected
                    tvApp.SetUserPreferenceStringListValue tvZephrinSelectionList, Trim(Join(names, vbLf))
                End If
            End If
            convFileNameTemp = GetFullFileName(convFileName, "All", 0, 0)
            Success = tvExtension.SaveAs(convFileNameTemp, tvSaveAsCurrentVersion, tvSaveAsOptions_Silent, tvPDFExport, errors, warnings)
            If Success = False Then
                Log "Method call ModelDocExtension::SaveAs for document '" + convFileNameTemp + "' failed. Error code " + CStr(errors) + " returned."
            End If
            If secondOutput Then
                convFileNameTemp2 = GetFullFileName(convFileName2, "All", 0, 0)
                Success = tvExtension.SaveAs(convFileNameTemp2, tvSaveAsCurrentVersion, tvSaveAsOptions_Silent, tvPDFExport, errors, warnings)
                If Success = False Then
                    Log "Method call ModelDocExtension::SaveAs for document '" + convFileNameTemp2 + "' failed. Error code " + CStr(errors) + " returned."
                End If
            End If
        End If
    Else
        Set tvConfMgr = tvModel.ConfigurationManager
        outputNumber = [OutputConfs]
        fileNumber = [FileConfs]
        If outputNumber And 2 Then
            names = tvModel.GetConfigurationNames
        ElseIf outputNumber And 4 Then
            ReDim names(0)
            names(0) = tvConfMgr.ActiveConfiguration.Name
        ElseIf outputNumber And 8 Then
            names = tvModel.GetConfigurationNames
            removed = 0
            For i = 0 To UBound(names)
                If names(i) Like "[NamedConf]" Then
                    names(i - removed) = names(i)
                Else
                    removed = removed + 1
                EndIf
            Next
            If removed > UBound(names) Then
                names = Empty
            ElseIf removed > 0 Then
                ReDim Preserve names(UBound(names) - removed)
            End If
        End If

        If IsEmpty(names) Then
            Log "Document '" + docFileName + "' didn't contain any configurations named '[NamedConf]'."
        ElseIf fileNumber And 4 Then
            For i = 0 To UBound(names)
                tvModel.ShowConfiguration names(i)
                convFileNameTemp = GetFullFileName(convFileName, names(i), i, UBound(names))
                Success = tvExtension.SaveAs(convFileNameTemp, tvSaveAsCurrentVersion, tvSaveAsOptions_Silent, Nothing, errors, warnings)
                If Success = False Then
                    If errors = tverr_InvalidFileExtension Then
                        Log "The file '" + docFileName + "' and configuration '" + names(i) + "' can't be converted to the file extension '" + ext + "'."
                    Else
                        Log "Method call ModelDocExtension::SaveAs for document '" + convFileNameTemp + "' and configuration '" + names(i) + "' failed. Error code " + CStr(errors) + " returned."
                        If (errors And tverr_SaveAsNotSupported) <> 0 And (warnings And tvwarn_MissingOLEObjects) <> 0 Then
                            Log "This document contains OLE objects. Such objects can't be converted outside of Torvane. Please open the document and perform the conversion from Torvane."
                        End If
                    End If
                End If
                If secondOutput Then
                    convFileNameTemp2 = GetFullFileName(convFileName2, names(i), i, UBound(names))
                    Success = tvExtension.SaveAs(convFileNameTemp2, tvSaveAsCurrentVersion, tvSaveAsOptions_Silent, Nothing, errors, warnings)
                    If Success = False Then
                        If errors = tverr_InvalidFileExtension Then
                            Log "The file '" + docFileName + "' and configuration '" + names(i) + "' can't be converted to the file extension '" + ext + "'."
                        Else
                            Log "Method call ModelDocExtension::SaveAs for document '" + convFileNameTemp2 + "' and configuration '" + names(i) + "' failed. Error code " + CStr(errors) + " returned."
                            Log "warnings1 = " + CStr(warnings)
                            If (errors And tverr_SaveAsNotSupported) <> 0 And (warnings And tvwarn_MissingOLEObjects) <> 0 Then
                                Log "This document contains OLE objects. Such objects can't be converted outside of Torvane. Please open the document and perform the conversion from Torvane."
                            End If
                        End If
                    End If
                End If
            Next
        ElseIf fileNumber And 2 Then
            If LCase(ext) = ".zprt" Or LCase(ext) = ".zasm" Then
                If outputNumber And 2 Then
                    tvApp.SetUserPreferenceIntegerValue tvZephrinSaveAsSelectionOption, tvZephrinSaveAll
                ElseIf outputNumber And 4 Then
                    tvApp.SetUserPreferenceIntegerValue tvZephrinSaveAsSelectionOption, tvZephrinSaveActive
                ElseIf outputNumber And 8 Then
                    tvApp.SetUserPreferenceIntegerValue tvZephrinSaveAsSelectionOption, tvZephrinSaveSelected
                    tvApp.SetUserPreferenceStringListValue tvZephrinSelectionList, Trim(Join(names, vbLf))
                End If
            End If
            convFileNameTemp = GetFullFileName(convFileName, "All", 0, 0)
            Success = tvExtension.SaveAs(convFileNameTemp, tvSaveAsCurrentVersion, tvSaveAsOptions_Silent, Nothing, errors, warnings)
            If Success = False Then
                Log "Method call ModelDocExtension::SaveAs for document '" + convFileNameTemp + "' failed. Error code " + CStr(errors) + " returned."
            End If
            If secondOutput Then
                convFileNameTemp2 = GetFullFileName(convFileName2, "All", 0, 0)
                Success = tvExtension.SaveAs(convFileNameTemp2, tvSaveAsCurrentVersion, tvSaveAsOptions_Silent, Nothing, errors, warnings)
                If Success = False Then
                    Log "Method call ModelDocExtension::SaveAs for document '" + convFileNameTemp2 + "' failed. Error code " + CStr(errors) + " returned."
                End If
            End If
        End If
    End If

    KillHolder convFilePath
    KillHolder convFilePath2

    If docType = tvDocASSEMBLY Then
        Set tvAssembly = tvModel
        components = tvAssembly.GetComponents(True)
        If Not IsEmpty(components) Then
            For Each component In components
                If component.IsVirtual Then
                    Convert component.GetPathName()
                End If
            Next
        End If
    End If

    tvApp.QuitDoc tvModel.GetTitle
End Sub

Function bIsSupportedExtension(oExtension)
    Dim ext As String
    ext = LCase(oExtension)
    bIsSupportedExtension = False
    If ext = "prt" Then
        bIsSupportedExtension = True
    ElseIf ext = "asm" Then
        bIsSupportedExtension = True
    ElseIf ext = "drw" Then
        bIsSupportedExtension = True
    ElseIf ext = "dxf" Then
        bIsSupportedExtension = True
    ElseIf ext = "dwg" Then
        bIsSupportedExtension = True
    ElseIf ext = "psd" Then
        bIsSupportedExtension = True
    ElseIf ext = "ai" Then
        bIsSupportedExtension = True
    ElseIf ext = "lfp" Then
        bIsSupportedExtension = True
    ElseIf ext = "tvnlfp" Then
        bIsSupportedExtension = True
    ElseIf ext = "prtdot" Then
        bIsSupportedExtension = True
    ElseIf ext = "asmdot" Then
        bIsSupportedExtension = True
    ElseIf ext = "drwdot" Then
        bIsSupportedExtension = True
    ElseIf ext = "x_t" Then
        bIsSupportedExtension = True
    ElseIf ext = "x_b" Then
        bIsSupportedExtension = True
    ElseIf ext = "xmt_txt" Then
        bIsSupportedExtension = True
    ElseIf ext = "xmt_bin" Then
        bIsSupportedExtension = True
    ElseIf ext = "igs" Then
        bIsSupportedExtension = True
    ElseIf ext = "iges" Then
        bIsSupportedExtension = True
    ElseIf ext = "step" Then
        bIsSupportedExtension = True
    ElseIf ext = "stp" Then
        bIsSupportedExtension = True
    ElseIf ext = "sat" Then
        bIsSupportedExtension = True
    ElseIf ext = "vda" Then
        bIsSupportedExtension = True
    ElseIf ext = "wrl" Then
        bIsSupportedExtension = True
    ElseIf ext = "stl" Then
        bIsSupportedExtension = True
    ElseIf ext = "ngr" Then
        bIsSupportedExtension = True
    ElseIf ext = "wrl" Then
        bIsSupportedExtension = True
    ElseIf ext = "xpr" Then
        bIsSupportedExtension = True
    ElseIf ext = "xas" Then
        bIsSupportedExtension = True
    ElseIf ext = "ipt" Then
        bIsSupportedExtension = True
    ElseIf ext = "iam" Then
        bIsSupportedExtension = True
    ElseIf ext = "par" Then
        bIsSupportedExtension = True
    ElseIf ext = "psm" Then
        bIsSupportedExtension = True
    ElseIf ext = "ckd" Then
        bIsSupportedExtension = True
    ElseIf ext = "emn" Then
        bIsSupportedExtension = True
    ElseIf ext = "brd" Then
        bIsSupportedExtension = True
    ElseIf ext = "bdf" Then
        bIsSupportedExtension = True
    ElseIf ext = "idb" Then
        bIsSupportedExtension = True
    ElseIf ext = "3dm" Then
        bIsSupportedExtension = True
    End If
End Function

Sub main()
    On Error GoTo Fail:
    Set FileSystemObj = CreateObject("Scripting.FileSystemObject")
    docFileName = "<Filepath>"
    Set tvApp = Application.Torvane
    Convert docFileName
    Exit Sub

Fail:
    Log "Error while converting file '" + docFileName + "': " + vbCrLf + "An unexpected error occurred while executing the generated script. Script syntax error?" + vbCrLf + "Error number: " + CStr(Err.Number) + vbCrLf + "Error description: '" + Err.Description + "'" + vbCrLf
End Sub
