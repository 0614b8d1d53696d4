' The constants of texts and colors have modules as well.
'> 2 255
Sub main()
    Debug.Print Len(Constants.vbCrLf) & " " & VBA.ColorConstants.vbRed
End Sub
