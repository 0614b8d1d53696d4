' Every label of the list is looked for.
'? 4:5 Label not defined: nowhere
Sub main()
    On 1 GoTo Here, Nowhere
Here:
End Sub
