' An argument that is left out between commas is missing in the ParamArray.
'> False True False
Sub Show(ParamArray all())
    Debug.Print IsMissing(all(0)) & " " & IsMissing(all(1)) & " " & IsMissing(all(2))
End Sub

Sub main()
    Show 1, , 3
End Sub
