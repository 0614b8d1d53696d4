' Within a text an apostrophe, a colon and Rem mean nothing.
'> it's Rem: 1
Sub main()
    Debug.Print "it's Rem: 1"
End Sub
