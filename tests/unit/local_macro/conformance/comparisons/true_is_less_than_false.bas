' True is -1 and therefore the less.
'> True
Sub main()
    Debug.Print True < False
End Sub
