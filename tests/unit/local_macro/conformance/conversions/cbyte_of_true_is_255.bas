' True has all bits set, in a Byte too.
'> 255 0
Sub main()
    Debug.Print CByte(True) & " " & CByte(False)
End Sub
