' Classes of the scripting library and Collection may carry their library's name.
'> Dictionary FileSystemObject Collection
Sub main()
    Dim d As New Scripting.Dictionary, f As New Scripting.FileSystemObject, c As New VBA.Collection
    Debug.Print TypeName(d) & " " & TypeName(f) & " " & TypeName(c)
End Sub
